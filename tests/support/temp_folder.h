#pragma once

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "platform/scope.h"

namespace orv {

inline std::string readFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// A temporary folder, removed by the destructor. Paths are relative to it.
class TempFolder : NonCopyable {
public:
    TempFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "orv-test-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr || ::chmod(pattern.c_str(), 0755) != 0) std::abort();
        path_ = pattern;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    std::string file(const std::string& place) const { return (path_ / place).string(); }
    /// Creates missing folders of the path.
    std::string write(const std::string& place, const std::string& bytes) const {
        std::filesystem::create_directories((path_ / place).parent_path());
        writeFile(path_ / place, bytes);
        return file(place);
    }
    std::string bytesOf(const std::string& place) const { return readFile(path_ / place); }
    bool has(const std::string& place) const { return std::filesystem::exists(path_ / place); }
    /// Returns the number of names in a folder, including hidden ones.
    std::ptrdiff_t countIn(const std::string& place) const {
        return std::distance(std::filesystem::directory_iterator(path_ / place), {});
    }
    /// Returns every file with its bytes, to detect changes.
    std::map<std::string, std::string> contents() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            files[entry.path().filename()] = entry.is_regular_file() ? readFile(entry.path()) : "";
        }
        return files;
    }

private:
    std::filesystem::path path_;
};

}  // namespace orv
