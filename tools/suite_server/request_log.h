#pragma once

#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>

namespace orv {

/// One line a request: local time, method, path, status, bytes of the request's body. Headers and bodies never go in.
class RequestLog {
public:
    explicit RequestLog(const std::filesystem::path& file) : stream_(file, std::ios::app) {}
    void write(const std::string& method, std::string path, int status, std::size_t bytes);

private:
    std::mutex guard_;
    std::ofstream stream_;
};

}  // namespace orv
