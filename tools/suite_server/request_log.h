#pragma once

#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>

namespace orv {

/// Writes one line per request: local time, method, path, status and size of the body. Headers and bodies are never
/// logged.
class RequestLog {
public:
    explicit RequestLog(const std::filesystem::path& file) : stream_(file, std::ios::app) {}
    void write(const std::string& method, std::string path, int status, std::size_t bytes);

private:
    std::mutex guard_;
    std::ofstream stream_;
};

}  // namespace orv
