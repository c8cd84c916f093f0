#pragma once

#include <map>
#include <string>

#include "adapters/posix/posix_files.h"
#include "platform/run_time_error.h"
#include "support/system_path.h"

namespace orv {

/// Real files. Whatever would write or delete a path that a test refuses fails; the path is still there as far as
/// reading goes.
class WatchedFiles : public PosixFiles {
public:
    using PosixFiles::PosixFiles;

    void refuse(const std::string& path, Failure failure) { refused_.insert_or_assign(folded(path), failure); }
    void allowAll() { refused_.clear(); }

    void copy(const std::string& from, const std::string& to) override { PosixFiles::copy(from, allowed(to)); }
    void remove(const std::string& path) override { PosixFiles::remove(allowed(path)); }
    void rename(const std::string& from, const std::string& to) override { PosixFiles::rename(from, allowed(to)); }
    void append(const std::string& path, const std::string& bytes) override {
        PosixFiles::append(allowed(path), bytes);
    }

private:
    const std::string& allowed(const std::string& path) const {
        if (const auto refusal = refused_.find(folded(path)); refusal != refused_.end()) {
            throw RunTimeError(refusal->second);
        }
        return path;
    }

    std::map<std::string, Failure> refused_;
};

}  // namespace orv
