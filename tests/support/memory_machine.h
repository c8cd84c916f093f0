#pragma once

// In-memory replacements for the services of a computer.

#include <map>
#include <string>

#include "platform/machine/file_system.h"
#include "platform/run_time_error.h"

namespace orv {

/// Returns a path, section or key for case-insensitive comparison.
inline std::string folded(std::string name) {
    for (char& letter : name) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter + ('a' - 'A'));
        }
    }
    return name;
}

/// Readable files in memory. Every folder exists.
class MemoryFiles : public FileSystem {
public:
    void put(const std::string& path, std::string bytes) { files_[folded(path)] = std::move(bytes); }

    bool exists(const std::string& path) const override { return files_.contains(folded(path)); }
    bool folderExists(const std::string&) const override { return true; }
    std::uint64_t sizeOf(const std::string& path) const override { return at(path).size(); }
    bool canOpen(const std::string& path) const override { return exists(path); }
    std::string read(const std::string& path, std::size_t limit) const override {
        if (at(path).size() > limit) {
            throw RunTimeError(Failure::OutOfMemory);
        }
        return at(path);
    }
    std::string programFolder() const override { return "C:\\ORV\\BIN"; }
    std::string nativePath(const std::string& path) const override { return path; }
    std::string systemPath(const std::string& nativePath) const override { return nativePath; }
    FileStream open(const std::string&) const override { throw RunTimeError(Failure::FileNotFound); }
    bool same(const std::string& a, const std::string& b) const override { return at(a) == at(b); }
    std::string privateFolder() override { throw RunTimeError(Failure::PathNotFound); }
    void write(const std::string&, std::span<const std::uint8_t>) override {
        throw RunTimeError(Failure::PermissionDenied);
    }
    void publish(const std::string&, const std::string&) override { throw RunTimeError(Failure::PermissionDenied); }
    void copy(const std::string&, const std::string&) override { throw RunTimeError(Failure::PermissionDenied); }
    void remove(const std::string&) override { throw RunTimeError(Failure::PermissionDenied); }
    void rename(const std::string&, const std::string&) override { throw RunTimeError(Failure::PermissionDenied); }
    void append(const std::string&, const std::string&) override { throw RunTimeError(Failure::PermissionDenied); }

private:
    const std::string& at(const std::string& path) const {
        const auto file = files_.find(folded(path));
        if (file == files_.end()) {
            throw RunTimeError(Failure::FileNotFound);
        }
        return file->second;
    }

    std::map<std::string, std::string> files_;
};

/// For tests that need only native paths.
using NativePaths = MemoryFiles;

inline NativePaths& nativePaths() {
    static NativePaths paths;
    return paths;
}

}  // namespace orv
