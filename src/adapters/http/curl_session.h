#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace orv {

/// One request. A `file`, open for reading, is PUT as it stands, a `body` is posted, and with neither it is a GET.
struct HttpRequest {
    std::string url;                       ///< http or https, with its scheme
    std::chrono::milliseconds timeout{0};  ///< for the whole exchange; 0 or less: without end
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

/// Does the request and takes the whole response, whatever its status. Redirects are not followed, proxies of the
/// environment and stored credentials not used, certificates checked. What ends without a whole response raises a
/// RunTimeError: 24012 for a time-out, 57 for a file that can't be read, 24011 for the rest.
HttpResponse exchange(const HttpRequest& request);

/// `url` with what stands behind its last "/" percent-encoded, so that a file name with blanks, kana, "%", "#" or "?"
/// arrives as it is. The rest is left alone, and so is a URL without a path.
std::string withEncodedName(const std::string& url);

}  // namespace orv
