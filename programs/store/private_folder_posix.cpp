#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "keeper.h"
#include "private_folder.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPrefix = ".orv_store-";
constexpr const char* kFile = "store";
constexpr int kMostAttempts = 10;
constexpr ::mode_t kForOwner = 0600;
constexpr auto kContents = std::to_array<const char*>({kFile, "store-journal", "store-wal", "store-shm"});

[[noreturn]] void raise(const fs::path& path) { throw KeeperFailure(path.string() + ": " + std::strerror(errno)); }

void removeFolder(const fs::path& path, int folder) {
    for (const char* name : kContents) {
        ::unlinkat(folder, name, 0);
    }
    ::rmdir(path.c_str());
}

void removeIfLeft(const fs::path& path) {
    const int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder < 0) {
        return;
    }
    struct stat facts {};
    if (::fstat(folder, &facts) == 0 && facts.st_uid == ::geteuid() && ::flock(folder, LOCK_EX | LOCK_NB) == 0) {
        removeFolder(path, folder);
    }
    ::close(folder);
}

void removeLeft(const fs::path& parent) {
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(parent, error)) {
        if (entry.path().filename().string().starts_with(kPrefix)) {
            removeIfLeft(entry.path());
        }
    }
}

fs::path newFolder(const fs::path& parent) {
    std::string pattern = (parent / (std::string(kPrefix) + "XXXXXX")).string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        raise(parent);
    }
    return pattern;
}

/// Returns -1 if another run has meanwhile removed the new folder, like that of a killed run.
int openLocked(const fs::path& path) {
    const int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    struct stat facts {};
    if (folder < 0 || (::flock(folder, LOCK_EX | LOCK_NB) == 0 && ::fstat(folder, &facts) == 0 && facts.st_nlink > 0)) {
        return folder;
    }
    ::close(folder);
    return -1;
}

/// Another user could have replaced the folder before it was opened.
bool isOfThisUserAlone(int folder) {
    struct stat facts {};
    return ::fstat(folder, &facts) == 0 && facts.st_uid == ::geteuid() && (facts.st_mode & 077U) == 0;
}

bool isSame(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Returns the permissions of a new file like those of another file or a folder.
::mode_t rightsLike(const fs::path& model) {
    struct stat facts {};
    if (::stat(model.c_str(), &facts) != 0) {
        raise(model);
    }
    return facts.st_mode & 0660U;
}

}  // namespace

struct PrivateFolder::Parts {
    fs::path path;
    int folder = -1;  // locked during the run
    int file = -1;
};

PrivateFolder::PrivateFolder(const fs::path& parent) : parts_(std::make_unique<Parts>()) {
    std::error_code error;
    const fs::path place = fs::canonical(parent.empty() ? "." : parent, error);  // the engine follows no link
    if (error) {
        throw KeeperFailure(parent.string() + ": " + error.message());
    }
    removeLeft(place);
    for (int attempt = 0; parts_->folder < 0 && attempt < kMostAttempts; ++attempt) {
        parts_->path = newFolder(place);
        parts_->folder = openLocked(parts_->path);
    }
    if (parts_->folder < 0) {
        raise(parts_->path);
    }
    if (!isOfThisUserAlone(parts_->folder)) {
        throw KeeperFailure(parts_->path.string() + ": was taken away as soon as it was made");
    }
    parts_->file = ::openat(parts_->folder, kFile, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kForOwner);
    if (parts_->file < 0) {
        raise(parts_->path);
    }
}

PrivateFolder::~PrivateFolder() {
    removeFolder(parts_->path, parts_->folder);
    ::close(parts_->file);
    ::close(parts_->folder);
}

std::string PrivateFolder::file() const { return (parts_->path / kFile).string(); }

void PrivateFolder::publish(const std::string& target, const fs::path& rightsFrom) const {
    struct stat made {};
    struct stat found {};
    if (::fstat(parts_->file, &made) != 0 || ::lstat(file().c_str(), &found) != 0 || !isSame(made, found)) {
        throw KeeperFailure(file() + ": was removed while it was written");
    }
    if (::fchmod(parts_->file, rightsFrom.empty() ? kForOwner : rightsLike(rightsFrom)) != 0) {
        raise(target);
    }
    // Unlike a rename, a hard link never replaces a file that was created meanwhile.
    const bool isLinked = ::linkat(parts_->folder, kFile, AT_FDCWD, target.c_str(), 0) == 0;
    const bool hasLinks = isLinked || (errno != EOPNOTSUPP && errno != EPERM);
    if (!isLinked &&
        (hasLinks || ::renameat2(parts_->folder, kFile, AT_FDCWD, target.c_str(), RENAME_NOREPLACE) != 0)) {
        raise(target);
    }
}

}  // namespace orv
