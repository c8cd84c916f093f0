#include "adapters/posix/native_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr auto kFailures = std::to_array<std::pair<int, Failure>>({
    {ENOENT, Failure::FileNotFound},
    {ENOTDIR, Failure::PathNotFound},
    {EACCES, Failure::PathFileAccess},
    {EISDIR, Failure::PathFileAccess},
    {ELOOP, Failure::PathFileAccess},
    {ENXIO, Failure::PathFileAccess},
    {EPERM, Failure::PermissionDenied},
    {EROFS, Failure::PermissionDenied},
    {EBUSY, Failure::PermissionDenied},
    {ETXTBSY, Failure::PermissionDenied},
    {EEXIST, Failure::FileExists},
    {ENOSPC, Failure::DiskFull},
    {EDQUOT, Failure::DiskFull},
    {EFBIG, Failure::DiskFull},
    {ENAMETOOLONG, Failure::BadFileName},
    {EINVAL, Failure::BadFileName},
    {ENOMEM, Failure::OutOfMemory},
});

constexpr mode_t kOwnerOnly = 0600;
constexpr mode_t kReadAndWrite = 0666;
constexpr std::string_view kBesideBegin = ".orv-";
constexpr std::string_view kBesideEnd = ".tmp";

std::string folderOf(const std::string& nativePath) { return std::filesystem::path(nativePath).parent_path().string(); }

int openOrRaise(const std::string& path, int flags) {
    // Without waiting: opening a pipe that nobody writes to must not hang the program.
    constexpr int kAlways = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    const mode_t mode = (flags & O_EXCL) != 0 ? kOwnerOnly : kReadAndWrite;
    const int descriptor = ::open(path.c_str(), flags | kAlways, mode);
    if (descriptor < 0) {
        raiseErrno(errno, path);
    }
    return descriptor;
}

/// The name is short and its own, so that a target with the longest of names can have a file beside it.
std::string freeNameBeside(const std::string& target) {
    static std::atomic<unsigned> count{0};
    std::string path;
    struct stat facts {};
    do {
        path = folderOf(target) + "/" + std::string(kBesideBegin) + std::to_string(::getpid()) + "-" +
               std::to_string(++count) + std::string(kBesideEnd);
    } while (::lstat(path.c_str(), &facts) == 0);
    return path;
}

/// A run that lives holds the lock of its file, on whichever computer it runs.
void removeUnlessHeld(const std::string& path) {
    try {
        const NativeFile file(path, O_WRONLY | O_NOFOLLOW);
        if (file.lock()) {
            ::unlink(path.c_str());
        }
    } catch (const RunTimeError&) {  // gone meanwhile, or not to be opened: no matter here
    }
}

void removeLeftovers(const std::string& folder) {
    std::error_code unreadable;
    for (std::filesystem::directory_iterator entry(folder, unreadable), end; !unreadable && entry != end;
         entry.increment(unreadable)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with(kBesideBegin) && name.ends_with(kBesideEnd)) {
            removeUnlessHeld(entry->path().string());
        }
    }
}

/// A new file that is held from now on. Between its making and its locking another run may have taken it for a
/// leftover; then the next one is made.
std::unique_ptr<NativeFile> makeBeside(const std::string& target, std::string& path) {
    removeLeftovers(folderOf(target));
    std::unique_ptr<NativeFile> file;
    do {
        path = freeNameBeside(target);
        file = std::make_unique<NativeFile>(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW);
    } while (!file->waitForLock());
    return file;
}

/// Taking the name of a file makes file systems write the new one to the disk at once; two that swap their names stay
/// in memory. False when nothing has happened: there is no file to swap with, or no such way here.
bool swapNames(const std::string& path, const std::string& target) {
    struct stat facts {};
    return ::lstat(target.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) &&
           ::renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, target.c_str(), RENAME_EXCHANGE) == 0;
}

}  // namespace

void raiseErrno(int error, const std::string& nativePath) {
    if (error == ENOENT && ::access(folderOf(nativePath).c_str(), F_OK) != 0) {
        throw RunTimeError(Failure::PathNotFound);
    }
    for (const auto& [known, failure] : kFailures) {
        if (known == error) {
            throw RunTimeError(failure);
        }
    }
    throw RunTimeError(Failure::DeviceIo);
}

NativeFile::NativeFile(std::string path, int flags) : path_(std::move(path)), descriptor_(openOrRaise(path_, flags)) {
    if (::fstat(descriptor_, &facts_) != 0 || !S_ISREG(facts_.st_mode)) {
        ::close(descriptor_);
        throw RunTimeError(Failure::PathFileAccess);
    }
}

NativeFile::~NativeFile() { ::close(descriptor_); }

std::size_t NativeFile::read(char* buffer, std::size_t size) const {
    ssize_t count = 0;
    do {
        count = ::read(descriptor_, buffer, size);
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        raiseErrno(errno, path_);
    }
    return static_cast<std::size_t>(count);
}

void NativeFile::writeAll(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            raiseErrno(errno, path_);
        }
    }
}

void NativeFile::append(std::string_view bytes) const {
    ssize_t count = 0;
    do {
        count = ::write(descriptor_, bytes.data(), bytes.size());
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        raiseErrno(errno, path_);
    }
    if (static_cast<std::size_t>(count) == bytes.size()) {
        return;
    }
    // Only while nothing of another program stands behind the half record.
    const off_t end = ::lseek(descriptor_, 0, SEEK_CUR);
    struct stat now {};
    if (::fstat(descriptor_, &now) == 0 && now.st_size == end && ::ftruncate(descriptor_, end - count) != 0) {
        throw RunTimeError(Failure::DeviceIo);
    }
    throw RunTimeError(Failure::DiskFull);
}

bool NativeFile::endsInALine() const {
    char last = 0;
    return facts_.st_size > 0 && ::pread(descriptor_, &last, 1, facts_.st_size - 1) == 1 && last != '\n';
}

void NativeFile::takeRightsOfFolder() const {
    struct stat folder {};
    if (::stat(folderOf(path_).c_str(), &folder) == 0) {
        static_cast<void>(::fchmod(descriptor_, folder.st_mode & kReadAndWrite));
    }
}

void NativeFile::sync() const {
    if (::fsync(descriptor_) != 0) {
        raiseErrno(errno, path_);
    }
}

bool NativeFile::lock() const { return ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0; }

bool NativeFile::waitForLock() const {
    // Where the file system has no locks, nobody can take this file for a leftover either.
    static_cast<void>(::flock(descriptor_, LOCK_EX));
    struct stat now {};
    return ::fstat(descriptor_, &now) != 0 || now.st_nlink > 0;
}

FileBeside::FileBeside(std::string target) : target_(std::move(target)), file_(makeBeside(target_, path_)) {}

FileBeside::~FileBeside() {
    if (!placed_) {
        ::unlink(path_.c_str());
    }
}

void FileBeside::place() {
    file_->sync();
    rename();
}

void FileBeside::placeUnsynced() {
    if (!swapNames(path_, target_)) {
        rename();
        return;
    }
    ::unlink(path_.c_str());
    placed_ = true;
}

void FileBeside::rename() {
    if (::rename(path_.c_str(), target_.c_str()) != 0) {
        raiseErrno(errno, target_);
    }
    placed_ = true;
}

std::string readWholeFile(const std::string& nativePath, std::size_t limit) {
    const NativeFile file(nativePath, O_RDONLY);
    const auto size = static_cast<std::size_t>(file.facts().st_size);
    if (size > limit) {
        throw RunTimeError(Failure::OutOfMemory);
    }
    std::string bytes(size + 1, '\0');  // one more, to see the end in the same reading
    std::size_t filled = 0;
    while (const std::size_t count = file.read(bytes.data() + filled, bytes.size() - filled)) {
        filled += count;
        if (filled > limit) {
            throw RunTimeError(Failure::OutOfMemory);
        }
        if (filled == bytes.size()) {
            bytes.resize(filled * 2);
        }
    }
    bytes.resize(filled);
    return bytes;
}

}  // namespace orv
