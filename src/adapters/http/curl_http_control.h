#pragma once

#include <atomic>
#include <chrono>

#include "platform/machine/http_control.h"

namespace orv {

class FileSystem;

/// The upload form's control: a PUT a call, waited for. The name at the end of the URL is percent-encoded here.
class CurlHttpControl : public HttpControl {
public:
    explicit CurlHttpControl(const FileSystem& files) : files_(files) {}

    std::int32_t State() const override { return state_; }
    void Timeout(std::int32_t milliseconds) override { timeout_ = std::chrono::milliseconds(milliseconds); }
    /// "HTTP/1.1" is the only version; another is failure 380.
    void Version(const std::string& version) override;
    void URL(const std::string& url) override { url_ = url; }
    /// While an upload is under way another is refused with failure 5 and changes nothing. `headers`: "Name: value",
    /// one a line.
    void Upload(const std::string& file, const std::optional<std::string>& contentType, std::string& response,
                const std::optional<std::string>& headers, const std::string& user,
                const std::string& password) override;
    /// 0 until a response has come.
    std::int32_t ResponseCode() const override { return responseCode_; }
    std::string ResponseText() const override { return responseText_; }

private:
    const FileSystem& files_;
    std::atomic<std::int32_t> state_{0};
    std::chrono::milliseconds timeout_{0};
    std::string url_;
    std::int32_t responseCode_ = 0;
    std::string responseText_;
};

}  // namespace orv
