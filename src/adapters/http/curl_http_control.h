#pragma once

#include <atomic>
#include <chrono>

#include "platform/machine/http_control.h"

namespace orv {

class FileSystem;

/// The upload form's control. Each call is a PUT that waits for the response. Percent-encodes the name at the end of
/// the URL.
class CurlHttpControl : public HttpControl {
public:
    explicit CurlHttpControl(const FileSystem& files) : files_(files) {}

    std::int32_t State() const override { return state_; }
    void Timeout(std::int32_t milliseconds) override { timeout_ = std::chrono::milliseconds(milliseconds); }
    /// Accepts only "HTTP/1.1"; any other version is failure 380.
    void Version(const std::string& version) override;
    void URL(const std::string& url) override { url_ = url; }
    /// During an upload a second one fails with 5 and changes nothing. `headers` are lines of "Name: value".
    void Upload(const std::string& file, const std::optional<std::string>& contentType, std::string& response,
                const std::optional<std::string>& headers, const std::string& user,
                const std::string& password) override;
    /// Returns 0 until a response has arrived.
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
