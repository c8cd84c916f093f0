#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

#include "adapters/posix/install_paths.h"
#include "support/failure_of.h"
#include "support/temp_folder.h"

namespace orv {

/// A folder with the drives of an office in it.
class TempOffice : public TempFolder {
public:
    TempOffice() { std::filesystem::create_directories(file("C/ORV/BIN")); }

    std::string root() const { return path().string(); }
    const InstallPaths& paths() const { return paths_; }

private:
    InstallPaths paths_{root(), root() + "/C/ORV/BIN"};
};

/// Nobody may change `folder` while it lives, not even the user who runs the tests, to whom all may be allowed.
class WithoutRights {
public:
    explicit WithoutRights(std::string folder) : folder_(std::move(folder)), user_(::geteuid()) {
        if (::chmod(folder_.c_str(), 0555) != 0 || (user_ == 0 && ::seteuid(65534) != 0)) {
            std::abort();
        }
    }
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;
    ~WithoutRights() {
        if (::seteuid(user_) != 0 || ::chmod(folder_.c_str(), 0755) != 0) {
            std::abort();
        }
    }

private:
    std::string folder_;
    uid_t user_;
};

/// A disk that is full once a file has so many bytes.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

}  // namespace orv
