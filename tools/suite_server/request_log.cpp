#include "request_log.h"

#include <algorithm>
#include <ctime>
#include <iomanip>

namespace orv {

void RequestLog::write(const std::string& method, std::string path, int status, std::size_t bytes) {
    // The client chooses the path; a line break in it would forge a line.
    std::ranges::replace_if(
        path, [](char c) { return (c >= 0 && c <= ' ') || c == '\x7F'; }, '?');
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const std::lock_guard lock(guard_);
    stream_ << std::put_time(&local, "%Y-%m-%dT%H:%M:%S") << ' ' << method << ' ' << path << ' ' << status << ' '
            << bytes << std::endl;
}

}  // namespace orv
