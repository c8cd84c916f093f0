#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/machine/file_system.h"
#include "platform/run_time_error.h"
#include "support/system_path.h"

namespace orv {

/// Forwards to real files. Whatever would write or delete a path that a test refuses fails; the path is still there as
/// far as reading goes.
class WatchedFiles : public FileSystem {
public:
    explicit WatchedFiles(FileSystem& real) : real_(real) {}

    void refuse(const std::string& path, Failure failure) { refused_.insert_or_assign(folded(path), failure); }
    void allowAll() { refused_.clear(); }

    bool exists(const std::string& path) const override { return real_.exists(path); }
    std::uint64_t sizeOf(const std::string& path) const override { return real_.sizeOf(path); }
    bool canOpen(const std::string& path) const override { return real_.canOpen(path); }
    void copy(const std::string& from, const std::string& to) override {
        check(to);
        real_.copy(from, to);
    }
    void share(const std::string& path) override { real_.share(path); }
    void remove(const std::string& path) override {
        check(path);
        real_.remove(path);
    }
    void rename(const std::string& from, const std::string& to) override {
        check(to);
        real_.rename(from, to);
    }
    void append(const std::string& path, const std::string& bytes) override {
        check(path);
        real_.append(path, bytes);
    }
    std::string read(const std::string& path, std::size_t limit) const override { return real_.read(path, limit); }
    std::string programFolder() const override { return real_.programFolder(); }
    std::string nativePath(const std::string& path) const override { return real_.nativePath(path); }
    std::string systemPath(const std::string& nativePath) const override { return real_.systemPath(nativePath); }

private:
    void check(const std::string& path) const {
        if (const auto refusal = refused_.find(folded(path)); refusal != refused_.end()) {
            throw RunTimeError(refusal->second);
        }
    }

    FileSystem& real_;
    std::map<std::string, Failure> refused_;
};

}  // namespace orv
