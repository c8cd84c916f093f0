#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace orv {

/// One request. With a `file`, open for reading, it is a PUT; with a `body` it is a POST; otherwise it is a GET.
struct HttpRequest {
    std::string url;                       ///< http or https, with its scheme
    std::chrono::milliseconds timeout{0};  ///< for the whole exchange; 0 or less: no limit
    std::vector<std::string> headers;      ///< "Name: value"
    std::string body;
    std::FILE* file = nullptr;
    std::string user;  ///< empty: no credentials
    std::string password;
};

struct HttpResponse {
    std::int32_t status = 0;
    std::string reason;  ///< of the status line, as UTF-8 without control characters; may be empty
    std::string body;
};

inline constexpr std::size_t kLongestResponse = 1024 * 1024;

/// Sends the request and receives the whole response, whatever its status. Follows no redirects, uses no proxies of the
/// environment and no stored credentials, and checks certificates. Throws a RunTimeError without a complete response:
/// 24012 for a time-out, 57 for a file that cannot be read, otherwise 24011.
HttpResponse exchange(const HttpRequest& request);

/// Percent-encodes the part of `url` after its last "/", for file names with blanks, kana, "%", "#" or "?". Changes
/// nothing else, and not a URL without a path.
std::string withEncodedName(const std::string& url);

}  // namespace orv
