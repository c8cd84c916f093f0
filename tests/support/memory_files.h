#pragma once

#include <map>
#include <string>

#include "platform/machine/file_system.h"
#include "platform/run_time_error.h"
#include "support/system_path.h"

namespace orv {

/// Files in memory. Every folder exists; a path given to `refuse` is there as far as `exists` goes, and whatever else
/// touches it fails.
class MemoryFiles : public FileSystem {
public:
    void put(const std::string& path, std::string bytes) { files_[folded(path)] = std::move(bytes); }
    /// The bytes of a file, empty when there is none.
    std::string get(const std::string& path) const {
        const auto file = files_.find(folded(path));
        return file == files_.end() ? std::string() : file->second;
    }
    void refuse(const std::string& path, Failure failure) { refused_.insert_or_assign(folded(path), failure); }
    void setProgramFolder(std::string folder) { programFolder_ = std::move(folder); }
    std::size_t count() const { return files_.size(); }

    bool exists(const std::string& path) const override { return files_.contains(folded(path)); }
    std::uint64_t sizeOf(const std::string& path) const override { return at(path).size(); }
    bool canOpen(const std::string& path) const override { return exists(path) && !refused_.contains(folded(path)); }
    void copy(const std::string& from, const std::string& to) override {
        check(to);
        put(to, at(from));
    }
    void remove(const std::string& path) override {
        at(path);
        files_.erase(folded(path));
    }
    void rename(const std::string& from, const std::string& to) override {
        check(to);
        if (exists(to)) {
            throw RunTimeError(Failure::FileExists);
        }
        put(to, at(from));
        files_.erase(folded(from));
    }
    void append(const std::string& path, const std::string& bytes) override {
        check(path);
        files_[folded(path)] += bytes;
    }
    std::string read(const std::string& path, std::size_t limit) const override {
        if (at(path).size() > limit) {
            throw RunTimeError(Failure::OutOfMemory);
        }
        return at(path);
    }
    std::string programFolder() const override { return programFolder_; }
    std::string nativePath(const std::string& path) const override { return path; }
    std::string systemPath(const std::string& nativePath) const override { return nativePath; }

private:
    void check(const std::string& path) const {
        if (const auto refusal = refused_.find(folded(path)); refusal != refused_.end()) {
            throw RunTimeError(refusal->second);
        }
    }
    const std::string& at(const std::string& path) const {
        check(path);
        const auto file = files_.find(folded(path));
        if (file == files_.end()) {
            throw RunTimeError(Failure::FileNotFound);
        }
        return file->second;
    }

    std::map<std::string, std::string> files_;
    std::map<std::string, Failure> refused_;
    std::string programFolder_ = "C:\\ORV\\BIN";
};

/// For those who ask for the native place of a path only.
using NativePaths = MemoryFiles;

inline NativePaths& nativePaths() {
    static NativePaths paths;
    return paths;
}

}  // namespace orv
