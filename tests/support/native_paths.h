#pragma once

#include "platform/machine/file_system.h"
#include "platform/run_time_error.h"

namespace orv {

/// For those who ask for the native place of a path only; here it is the path itself.
class NativePaths : public FileSystem {
public:
    std::string nativePath(const std::string& path) const override {
        return path == "bad name" ? throw RunTimeError(Failure::BadFileName) : path;
    }
    bool exists(const std::string&) const override { throw RunTimeError(Failure::Internal); }
    std::uint64_t sizeOf(const std::string&) const override { throw RunTimeError(Failure::Internal); }
    bool canOpen(const std::string&) const override { throw RunTimeError(Failure::Internal); }
    void copy(const std::string&, const std::string&) override { throw RunTimeError(Failure::Internal); }
    void remove(const std::string&) override { throw RunTimeError(Failure::Internal); }
    void rename(const std::string&, const std::string&) override { throw RunTimeError(Failure::Internal); }
    void append(const std::string&, const std::string&) override { throw RunTimeError(Failure::Internal); }
    std::string read(const std::string&, std::size_t) const override { throw RunTimeError(Failure::Internal); }
    std::string programFolder() const override { throw RunTimeError(Failure::Internal); }
    std::string systemPath(const std::string&) const override { throw RunTimeError(Failure::Internal); }
};

inline NativePaths& nativePaths() {
    static NativePaths paths;
    return paths;
}

}  // namespace orv
