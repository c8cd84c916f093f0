#pragma once

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "adapters/posix/install_paths.h"
#include "platform/run_time_error.h"

namespace orv {

/// A folder of its own for each test, with the drives of an office in it. It goes with the test.
class TempOffice {
public:
    TempOffice() {
        ::chmod(root_.c_str(), 0755);
        std::filesystem::create_directories(root_ + "/C/ORV/BIN");
    }
    TempOffice(const TempOffice&) = delete;
    TempOffice& operator=(const TempOffice&) = delete;
    ~TempOffice() {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }

    const std::string& root() const { return root_; }
    const InstallPaths& paths() const { return paths_; }

    /// `place` is below the root. Makes the folders on the way.
    std::string write(const std::string& place, const std::string& bytes) const {
        const std::filesystem::path path = root_ + "/" + place;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
        return path.string();
    }
    std::string bytesOf(const std::string& place) const {
        std::ifstream file(root_ + "/" + place, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool has(const std::string& place) const { return std::filesystem::exists(root_ + "/" + place); }
    /// How many names a folder holds, hidden ones too.
    std::ptrdiff_t countIn(const std::string& place) const {
        return std::distance(std::filesystem::directory_iterator(root_ + "/" + place), {});
    }

private:
    static std::string freshFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "orv-posix-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            std::abort();
        }
        return name;
    }

    std::string root_ = freshFolder();
    InstallPaths paths_{root_, root_ + "/C/ORV/BIN"};
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

/// The number of the failure that `action` ends in; 0: none.
template <typename Action>
int failureOf(Action action) {
    try {
        action();
        return 0;
    } catch (const RunTimeError& error) {
        return error.number();
    }
}

}  // namespace orv
