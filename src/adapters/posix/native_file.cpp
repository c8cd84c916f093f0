#include "adapters/posix/native_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "adapters/machine/whole_file.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr auto kFailures = std::to_array<std::pair<int, Failure>>({
    {ENOENT, Failure::FileNotFound},
    {ENOTDIR, Failure::PathNotFound},
    {EACCES, Failure::PathFileAccess},
    {EISDIR, Failure::PathFileAccess},
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
constexpr int kMostAttempts = 3;
constexpr mode_t kReadAndWrite = 0666;
constexpr std::string_view kReplacementBegin = ".orv-";
constexpr std::string_view kReplacementEnd = ".tmp";
constexpr std::string_view kLinkText =
    "ファイルまたはそのフォルダーがリンクになっているため、開けません。リンクではなく実物を置いてください。";

std::string parentFolder(const std::string& nativePath) {
    return std::filesystem::path(nativePath).parent_path().string();
}

Descriptor openFollowing(const std::string& path, int flags) {
    // Does not wait. Otherwise opening a pipe without a writer would hang the program.
    constexpr int kAlways = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    Descriptor opened(::open(path.c_str(), flags | kAlways));
    if (!opened) {
        raiseErrno(errno, path);
    }
    return opened;
}

/// A user who can write a log need not be able to read it.
Descriptor existingLog(const FilePlace& place) {
    Descriptor log = place.tryOpen(O_RDWR | O_APPEND);
    return log || errno != EACCES ? std::move(log) : place.tryOpen(O_WRONLY | O_APPEND);
}

/// The name is short and independent of the target's, which can already have the maximum length.
FilePlace freeReplacementPlace(const FilePlace& target) {
    static std::atomic<unsigned> count{0};
    struct stat facts {};
    for (;;) {
        const FilePlace place = target.sibling(std::string(kReplacementBegin) + std::to_string(::getpid()) + "-" +
                                               std::to_string(++count) + std::string(kReplacementEnd));
        if (!place.look(facts)) {
            return place;
        }
    }
}

/// A run holds the lock of its file as long as it exists, on whichever computer it runs.
void removeUnlessHeld(const FilePlace& place) {
    const Descriptor file = place.tryOpen(O_WRONLY);
    if (file && tryLock(file)) {
        static_cast<void>(place.unlink());
    }
}

void removeLeftovers(const FilePlace& target) {
    forEachName(target.folder(), [&](const std::string& name) {
        if (name.starts_with(kReplacementBegin) && name.ends_with(kReplacementEnd)) {
            removeUnlessHeld(target.sibling(name));
        }
    });
}

/// Returns a new, locked file. Before it was locked, another run may have removed it as a leftover. Then another one is
/// created.
std::unique_ptr<NativeFile> makeReplacement(const FilePlace& target, FilePlace& place) {
    removeLeftovers(target);
    Descriptor file;
    do {
        place = freeReplacementPlace(target);
        file = place.open(O_WRONLY | O_CREAT | O_EXCL, kOwnerOnly);
    } while (!waitForLock(file));
    return std::make_unique<NativeFile>(std::move(file));
}

/// Replacing an existing file makes some file systems write the new one to the disk at once. Swapping the two names
/// does not. False if nothing was done, because there is no file to swap with or the file system does not support it.
bool swapNames(const FilePlace& place, const FilePlace& target) {
    struct stat facts {};
    return target.look(facts) && S_ISREG(facts.st_mode) &&
           ::renameat2(place.folder(), place.name(), target.folder(), target.name(), RENAME_EXCHANGE) == 0;
}

}  // namespace

void raiseErrno(int error, const std::string& nativePath) {
    raiseErrno(error == ENOENT && ::access(parentFolder(nativePath).c_str(), F_OK) != 0 ? ENOTDIR : error);
}

void raiseErrno(int error) {
    if (error == ELOOP) {
        throw RunTimeError(Failure::PathFileAccess, std::string(kLinkText));
    }
    for (const auto& [known, failure] : kFailures) {
        if (known == error) {
            throw RunTimeError(failure);
        }
    }
    throw RunTimeError(Failure::DeviceIo);
}

NativeFile::NativeFile(Descriptor opened) : descriptor_(std::move(opened)) {
    if (::fstat(descriptor_.number(), &facts_) != 0 || !S_ISREG(facts_.st_mode)) {
        throw RunTimeError(Failure::PathFileAccess);
    }
}

NativeFile::NativeFile(const std::string& path, int flags) : NativeFile(openFollowing(path, flags)) {}

std::size_t NativeFile::read(char* buffer, std::size_t size) const {
    ssize_t count = 0;
    do {
        count = ::read(descriptor_.number(), buffer, size);
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        raiseErrno(errno);
    }
    return static_cast<std::size_t>(count);
}

void NativeFile::writeAll(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor_.number(), bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            raiseErrno(errno);
        }
    }
}

void NativeFile::append(std::string_view bytes) const {
    ssize_t count = 0;
    do {
        count = ::write(descriptor_.number(), bytes.data(), bytes.size());
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        raiseErrno(errno);
    }
    if (static_cast<std::size_t>(count) == bytes.size()) {
        return;
    }
    // Only if no other program has written after the incomplete record.
    const off_t end = ::lseek(descriptor_.number(), 0, SEEK_CUR);
    struct stat now {};
    if (::fstat(descriptor_.number(), &now) == 0 && now.st_size == end &&
        ::ftruncate(descriptor_.number(), end - count) != 0) {
        throw RunTimeError(Failure::DeviceIo);
    }
    throw RunTimeError(Failure::DiskFull);
}

bool NativeFile::endsInALine() const {
    char last = 0;
    return facts_.st_size > 0 && ::pread(descriptor_.number(), &last, 1, facts_.st_size - 1) == 1 && last != '\n';
}

void NativeFile::copyRightsFrom(int folder) const {
    static_cast<void>(::fchmod(descriptor_.number(), sharedRights(folder)));
}

void NativeFile::sync() const {
    if (::fsync(descriptor_.number()) != 0) {
        raiseErrno(errno);
    }
}

/// Only the user who creates the log sets its permissions.
NativeFile openLog(const FilePlace& place) {
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        if (Descriptor existing = existingLog(place)) {
            requireOneName(existing);
            return NativeFile(std::move(existing));
        }
        if (errno != ENOENT) {
            raiseErrno(errno);
        }
        if (Descriptor made = place.tryOpen(O_RDWR | O_APPEND | O_CREAT | O_EXCL, sharedRights(place.folder()))) {
            NativeFile log(std::move(made));
            log.copyRightsFrom(place.folder());
            return log;
        }
        if (errno != EEXIST) {
            raiseErrno(errno);
        }
    }
    throw RunTimeError(Failure::PathFileAccess);
}

void requireOneName(const Descriptor& file) {
    struct stat facts {};
    if (::fstat(file.number(), &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_nlink > 1) {
        raiseErrno(ELOOP);
    }
}

FileStream toStream(Descriptor file) {
    FileStream stream(::fdopen(file.number(), "rb"));
    if (!stream) {
        throw RunTimeError(Failure::DeviceIo);
    }
    file.release();
    return stream;
}

bool tryLock(const Descriptor& file) { return ::flock(file.number(), LOCK_EX | LOCK_NB) == 0; }

bool waitForLock(const Descriptor& file) {
    // If the file system has no locks, no other run can treat this file as a leftover either.
    static_cast<void>(::flock(file.number(), LOCK_EX));
    struct stat now {};
    return ::fstat(file.number(), &now) != 0 || now.st_nlink > 0;
}

mode_t sharedRights(int folder) {
    struct stat facts {};
    return ::fstat(folder, &facts) == 0 ? facts.st_mode & kReadAndWrite : kOwnerOnly;
}

void forEachName(int folder, const std::function<void(const std::string& name)>& act) {
    Descriptor readable(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::fdopendir(readable.number()), &::closedir);
    if (entries) {
        readable.release();
    }
    while (const dirent* entry = entries ? ::readdir(entries.get()) : nullptr) {
        act(entry->d_name);
    }
}

ReplacementFile::ReplacementFile(FilePlace target, FileAccess access)
    : target_(std::move(target)), place_(target_), access_(access), file_(makeReplacement(target_, place_)) {}

ReplacementFile::~ReplacementFile() {
    if (!placed_) {
        static_cast<void>(place_.unlink());
    }
}

void ReplacementFile::place() {
    if (access_ == FileAccess::AsFolder) {
        file_->copyRightsFrom(target_.folder());
    }
    file_->sync();
    rename();
}

void ReplacementFile::placeUnsynced() {
    if (!swapNames(place_, target_)) {
        rename();
        return;
    }
    static_cast<void>(place_.unlink());
    placed_ = true;
}

void ReplacementFile::rename() {
    if (::renameat(place_.folder(), place_.name(), target_.folder(), target_.name()) != 0) {
        raiseErrno(errno);
    }
    placed_ = true;
}

std::string readWholeFile(const std::string& nativePath, std::size_t limit) {
    return readWhole(NativeFile(nativePath, O_RDONLY), limit);
}

}  // namespace orv
