#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orv {

/// The HTTP client control of the upload form. One request at a time.
class HttpControl {
public:
    HttpControl() = default;
    HttpControl(const HttpControl&) = delete;
    HttpControl& operator=(const HttpControl&) = delete;
    virtual ~HttpControl() = default;

    /// 0 when idle.
    virtual std::int32_t State() const = 0;
    /// In milliseconds; 0 or less waits without end.
    virtual void Timeout(std::int32_t milliseconds) = 0;
    virtual void Version(const std::string& version) = 0;
    virtual void URL(const std::string& url) = 0;
    /// PUTs the file's bytes to the URL with basic authentication and takes the response's body. Raises a RunTimeError
    /// when no response comes (24011, 24012) or the file can't be read (53); any status is a response.
    virtual void Upload(const std::string& file, const std::optional<std::string>& contentType, std::string& response,
                        const std::optional<std::string>& headers, const std::string& user,
                        const std::string& password) = 0;
    virtual std::int32_t ResponseCode() const = 0;
    virtual std::string ResponseText() const = 0;
};

}  // namespace orv
