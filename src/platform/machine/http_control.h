#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/scope.h"

namespace orv {

/// The HTTP client control of the upload form. Handles one request at a time.
class HttpControl : public Interface {
public:
    /// Returns 0 when idle.
    virtual std::int32_t State() const = 0;
    /// In milliseconds. 0 or less waits without limit.
    virtual void Timeout(std::int32_t milliseconds) = 0;
    virtual void Version(const std::string& version) = 0;
    virtual void URL(const std::string& url) = 0;
    /// Sends the file with PUT and basic authentication, and reads the response's body. Throws a RunTimeError if there
    /// is no response (24011, 24012) or the file cannot be read (53). Any status counts as a response.
    virtual void Upload(const std::string& file, const std::optional<std::string>& contentType, std::string& response,
                        const std::optional<std::string>& headers, const std::string& user,
                        const std::string& password) = 0;
    virtual std::int32_t ResponseCode() const = 0;
    virtual std::string ResponseText() const = 0;
};

}  // namespace orv
