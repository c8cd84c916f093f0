#include "adapters/posix/file_place.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include "adapters/posix/native_file.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr int kFolderOnly = O_PATH | O_DIRECTORY | O_CLOEXEC;

bool isLink(int folder, const std::string& name) {
    struct stat facts {};
    return ::fstatat(folder, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(facts.st_mode);
}

/// The kernel reports a link as "not a folder".
Descriptor stepInto(int folder, const std::string& name) {
    Descriptor next(::openat(folder, name.c_str(), kFolderOnly | O_NOFOLLOW));
    if (!next) {
        const int error = errno;
        raiseErrno(isLink(folder, name) ? ELOOP : error == ENOENT ? ENOTDIR : error);
    }
    return next;
}

Descriptor parentFolder(const NativePath& path) {
    Descriptor folder(::open(path.base.empty() ? "/" : path.base.c_str(), kFolderOnly));
    if (!folder) {
        raiseErrno(errno == ENOENT ? ENOTDIR : errno);
    }
    std::size_t from = 0;
    for (std::size_t end = path.below.find('/'); end != std::string::npos; end = path.below.find('/', from)) {
        folder = end > from ? stepInto(folder.number(), path.below.substr(from, end - from)) : std::move(folder);
        from = end + 1;
    }
    return folder;
}

/// Returns 0, or -1 with errno. Not every file system can refuse an existing target by itself.
int renameToFreeName(const FilePlace& from, const FilePlace& to) {
    const int result = ::renameat2(from.folder(), from.name(), to.folder(), to.name(), RENAME_NOREPLACE);
    if (result == 0 || (errno != EINVAL && errno != ENOSYS)) {
        return result;
    }
    struct stat facts {};
    if (to.look(facts)) {
        errno = EEXIST;
        return -1;
    }
    return ::renameat(from.folder(), from.name(), to.folder(), to.name());
}

}  // namespace

FilePlace::FilePlace(const NativePath& path)
    : FilePlace(std::make_shared<const Descriptor>(parentFolder(path)), path.below.substr(path.below.rfind('/') + 1)) {
    isChosen_ = path.chosen;
}

FilePlace::FilePlace(std::shared_ptr<const Descriptor> folder, std::string name)
    : folder_(std::move(folder)), name_(std::move(name)) {}

Descriptor FilePlace::open(int flags, mode_t rights) const {
    Descriptor opened = tryOpen(flags, rights);
    if (!opened) {
        raiseErrno(errno);
    }
    return opened;
}

Descriptor FilePlace::openToRead() const { return open(O_RDONLY); }

Descriptor FilePlace::tryOpen(int flags, mode_t rights) const {
    // Does not wait. Otherwise opening a pipe without a writer would hang the program.
    constexpr int kAlways = O_NOFOLLOW | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    return Descriptor(::openat(folder(), name(), flags | kAlways, rights));
}

bool FilePlace::look(struct stat& facts) const { return ::fstatat(folder(), name(), &facts, AT_SYMLINK_NOFOLLOW) == 0; }

bool FilePlace::holdsFile() const {
    struct stat facts {};
    if (!look(facts) || S_ISLNK(facts.st_mode)) {
        return false;
    }
    if (!S_ISREG(facts.st_mode)) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    return true;
}

bool FilePlace::unlink() const { return ::unlinkat(folder(), name(), 0) == 0; }

void FilePlace::remove() const {
    if (!unlink()) {
        raiseErrno(errno);
    }
}

void FilePlace::renameTo(const FilePlace& target) const {
    if (renameToFreeName(*this, target) != 0) {
        raiseErrno(errno);
    }
}

}  // namespace orv
