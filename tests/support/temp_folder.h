#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <string>

#include "adapters/store/file_path.h"
#include "platform/scope.h"

namespace orv {

inline std::string readFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// The same for paths in UTF-8.
inline std::string readFile(const std::string& path) { return readFile(filePath(path)); }
inline void writeFile(const std::string& path, const std::string& bytes) { writeFile(filePath(path), bytes); }

/// Copies a folder's files and folders into an existing folder.
inline void copyFolder(const std::filesystem::path& from, const std::filesystem::path& to) {
    for (const auto& entry : std::filesystem::directory_iterator(from)) {
        const auto target = to / entry.path().filename();
        if (entry.is_directory()) {
            std::filesystem::create_directory(target);
            copyFolder(entry.path(), target);
        } else {
            std::filesystem::copy_file(entry.path(), target);
        }
    }
}

/// A temporary folder, removed by the destructor. Paths are relative to it.
class TempFolder : NonCopyable {
public:
    TempFolder() {
        std::random_device random;
        do {
            path_ = std::filesystem::temp_directory_path() / ("orv-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
        std::filesystem::permissions(path_, std::filesystem::perms(0755));
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    std::string file(const std::string& place) const { return pathText(path_ / filePath(place)); }
    /// Creates missing folders of the path.
    std::string write(const std::string& place, const std::string& bytes) const {
        std::filesystem::create_directories((path_ / filePath(place)).parent_path());
        writeFile(file(place), bytes);
        return file(place);
    }
    std::string readBytes(const std::string& place) const { return readFile(file(place)); }
    bool has(const std::string& place) const { return std::filesystem::exists(path_ / filePath(place)); }
    /// Returns the number of names in a folder, including hidden ones.
    std::ptrdiff_t countIn(const std::string& place) const {
        return std::distance(std::filesystem::directory_iterator(path_ / filePath(place)), {});
    }
    /// Returns every file with its bytes, to detect changes.
    std::map<std::string, std::string> contents() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            files[entry.path().filename().string()] = entry.is_regular_file() ? readFile(entry.path()) : "";
        }
        return files;
    }

private:
    std::filesystem::path path_;
};

}  // namespace orv
