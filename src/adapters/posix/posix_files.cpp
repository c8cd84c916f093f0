#include "adapters/posix/posix_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "adapters/posix/native_file.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

bool sameFile(const struct stat& a, const struct stat& b) { return a.st_dev == b.st_dev && a.st_ino == b.st_ino; }

bool sameContent(const NativeFile& a, const NativeFile& b) {
    std::array<char, 1 << 16> left{};
    std::array<char, 1 << 16> right{};
    std::size_t count = 0;
    if (a.facts().st_size != b.facts().st_size) {
        return false;
    }
    do {
        count = a.read(left.data(), left.size());
        if (b.read(right.data(), right.size()) != count || std::memcmp(left.data(), right.data(), count) != 0) {
            return false;
        }
    } while (count > 0);
    return true;
}

/// What cannot be read is not the same.
bool sameBytes(const std::string& a, const std::string& b) {
    try {
        return sameContent(NativeFile(a, O_RDONLY), NativeFile(b, O_RDONLY));
    } catch (const RunTimeError&) {
        return false;
    }
}

void copyBytes(const NativeFile& from, const NativeFile& to) {
    std::array<char, 1 << 16> buffer{};
    while (const std::size_t count = from.read(buffer.data(), buffer.size())) {
        to.writeAll({buffer.data(), count});
    }
}

bool saysNothingIsThere(int error) {
    return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG || error == ELOOP || error == EINVAL;
}

/// 0, or -1 with errno. Not every file system can refuse an existing target by itself.
int renameToFreeName(const char* from, const char* to) {
    const int result = ::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
    if (result == 0 || (errno != EINVAL && errno != ENOSYS)) {
        return result;
    }
    struct stat facts {};
    if (::lstat(to, &facts) == 0) {
        errno = EEXIST;
        return -1;
    }
    return ::rename(from, to);
}

}  // namespace

bool PosixFiles::exists(const std::string& path) const { return isOfType(path, S_IFREG); }

bool PosixFiles::folderExists(const std::string& path) const { return isOfType(path, S_IFDIR); }

/// False as well if nothing is there.
bool PosixFiles::isOfType(const std::string& path, unsigned type) const {
    std::string native;
    try {
        native = nativePath(path);
    } catch (const RunTimeError&) {
        return false;
    }
    struct stat facts {};
    if (::stat(native.c_str(), &facts) == 0) {
        return (facts.st_mode & S_IFMT) == type;
    }
    if (!saysNothingIsThere(errno)) {
        raiseErrno(errno, native);
    }
    return false;
}

std::uint64_t PosixFiles::sizeOf(const std::string& path) const {
    const std::string native = nativePath(path);
    struct stat facts {};
    if (::stat(native.c_str(), &facts) != 0) {
        raiseErrno(errno, native);
    }
    if (!S_ISREG(facts.st_mode)) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    return static_cast<std::uint64_t>(facts.st_size);
}

bool PosixFiles::canOpen(const std::string& path) const {
    try {
        const NativeFile file(nativePath(path), O_RDONLY);
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

void PosixFiles::copy(const std::string& from, const std::string& to) {
    const NativeFile source(nativePath(from), O_RDONLY);
    const std::string target = nativePath(to);
    struct stat standing {};
    if (::stat(target.c_str(), &standing) == 0) {
        if (sameFile(standing, source.facts())) {
            return;
        }
        if (!S_ISREG(standing.st_mode)) {
            throw RunTimeError(Failure::PathFileAccess);
        }
        if (sameBytes(nativePath(from), target)) {
            return;
        }
    }
    FileBeside copied(target);
    copyBytes(source, copied.file());
    copied.place();
}

void PosixFiles::share(const std::string& path) {
    try {
        NativeFile(nativePath(path), O_RDONLY).takeRightsOfFolder();
    } catch (const RunTimeError&) {  // who cannot even read it has nothing to give
    }
}

void PosixFiles::remove(const std::string& path) {
    const std::string native = nativePath(path);
    if (::unlink(native.c_str()) != 0) {
        raiseErrno(errno, native);
    }
}

void PosixFiles::rename(const std::string& from, const std::string& to) {
    const std::string source = nativePath(from);
    const std::string target = nativePath(to);
    if (renameToFreeName(source.c_str(), target.c_str()) != 0) {
        const int error = errno;
        struct stat facts {};
        raiseErrno(error, ::lstat(source.c_str(), &facts) == 0 ? target : source);
    }
}

void PosixFiles::append(const std::string& path, const std::string& record) {
    const NativeFile file(nativePath(path), O_RDWR | O_APPEND | O_CREAT);
    if (file.facts().st_size == 0) {
        file.takeRightsOfFolder();
    }
    file.append(file.endsInALine() ? "\r\n" + record : record);
}

std::string PosixFiles::read(const std::string& path, std::size_t limit) const {
    return readWholeFile(nativePath(path), limit);
}

void PosixFileService::FileDelete(const std::string& path, bool& ok) {
    failure_ = {};
    try {
        files_.remove(path);
        ok = true;
    } catch (const RunTimeError& error) {
        failure_ = {"「" + path + "」を削除できませんでした。" + error.description(), std::to_string(error.number())};
        ok = false;
    }
}

}  // namespace orv
