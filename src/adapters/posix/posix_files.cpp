#include "adapters/posix/posix_files.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "adapters/posix/native_file.h"
#include "platform/ascii.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr mode_t kFolderOwnerOnly = 0700;
constexpr int kMostAttempts = 3;

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

void copyBytes(const NativeFile& from, const NativeFile& to) {
    std::array<char, 1 << 16> buffer{};
    while (const std::size_t count = from.read(buffer.data(), buffer.size())) {
        to.writeAll({buffer.data(), count});
    }
}

bool saysNothingIsThere(int error) {
    return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG || error == ELOOP || error == EINVAL;
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

/// A user who can write a log need not be able to read it.
Descriptor existingLog(const FilePlace& place) {
    Descriptor log = place.tryOpen(O_RDWR | O_APPEND);
    return log || errno != EACCES ? std::move(log) : place.tryOpen(O_WRONLY | O_APPEND);
}

NativeFile withOneName(Descriptor opened) {
    NativeFile file(std::move(opened));
    if (file.facts().st_nlink > 1) {
        raiseErrno(ELOOP);
    }
    return file;
}

/// Several users write one log. Only the user who creates it sets its permissions.
NativeFile openLog(const FilePlace& place) {
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        if (Descriptor existing = existingLog(place)) {
            return withOneName(std::move(existing));
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

std::size_t nameBegin(const std::string& path) { return path.rfind('\\') + 1; }

std::string stateFolder() {
    if (const char* state = std::getenv("XDG_STATE_HOME"); state != nullptr && *state == '/') {
        return state;
    }
    const char* home = std::getenv("HOME");
    const passwd* user = home != nullptr ? nullptr : ::getpwuid(::geteuid());
    return std::string(home != nullptr ? home : user != nullptr ? user->pw_dir : "") + "/.local/state";
}

}  // namespace

void PosixFiles::workIn(const std::string& folder) {
    if (!folder.empty() && !work_.contains(upperAscii(folder))) {
        work_.try_emplace(upperAscii(folder), paths_.split(folder + "any")).first->second.removeDead();
    }
}

WorkFolder* PosixFiles::findWorkFolder(const std::string& path) const {
    const auto found = work_.find(upperAscii(path.substr(0, nameBegin(path))));
    return found == work_.end() || path.ends_with('\\') ? nullptr : &found->second;
}

FilePlace PosixFiles::place(const std::string& path) const {
    WorkFolder* const own = findWorkFolder(path);
    return own != nullptr ? own->place(path.substr(nameBegin(path))) : FilePlace(paths_.split(path));
}

/// A file that the operator has chosen can have any number of names.
Descriptor PosixFiles::opened(const std::string& path) const {
    Descriptor file = place(path).open(O_RDONLY);
    struct stat facts {};
    const bool hasOneName = ::fstat(file.number(), &facts) != 0 || !S_ISREG(facts.st_mode) || facts.st_nlink <= 1;
    if (!hasOneName && !paths_.split(path).chosen) {
        raiseErrno(ELOOP);
    }
    return file;
}

bool PosixFiles::look(const std::string& path, struct stat& facts) const {
    if (WorkFolder* const own = findWorkFolder(path)) {
        errno = ENOENT;
        return *own && own->place(path.substr(nameBegin(path))).look(facts);
    }
    return ::stat(paths_.toNative(path).c_str(), &facts) == 0;
}

bool PosixFiles::exists(const std::string& path) const { return isOfType(path, S_IFREG); }

bool PosixFiles::folderExists(const std::string& path) const { return isOfType(path, S_IFDIR); }

/// Also false if the file does not exist.
bool PosixFiles::isOfType(const std::string& path, unsigned type) const {
    struct stat facts {};
    try {
        if (look(path, facts)) {
            return (facts.st_mode & S_IFMT) == type;
        }
    } catch (const RunTimeError& failure) {
        if (failure.number() != static_cast<int>(Failure::BadFileName)) {
            throw;
        }
        return false;
    }
    if (!saysNothingIsThere(errno)) {
        raiseErrno(errno, nativePath(path));
    }
    return false;
}

std::uint64_t PosixFiles::fileSize(const std::string& path) const {
    struct stat facts {};
    if (!look(path, facts)) {
        raiseErrno(errno, nativePath(path));
    }
    if (!S_ISREG(facts.st_mode)) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    return static_cast<std::uint64_t>(facts.st_size);
}

bool PosixFiles::canOpen(const std::string& path) const {
    try {
        const NativeFile file(opened(path));
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

FileStream PosixFiles::open(const std::string& path) const {
    Descriptor file = opened(path);
    FileStream stream(::fdopen(file.number(), "rb"));
    if (!stream) {
        throw RunTimeError(Failure::DeviceIo);
    }
    file.release();
    return stream;
}

bool PosixFiles::same(const std::string& a, const std::string& b) const {
    try {
        return sameContent(NativeFile(opened(a)), NativeFile(opened(b)));
    } catch (const RunTimeError&) {
        return false;
    }
}

/// Does not wait for the disk for a working file, which is needed only during the run.
void PosixFiles::copy(const std::string& from, const std::string& to) {
    const NativeFile source(opened(from));
    const FilePlace target = place(to);
    struct stat existing {};
    if (target.look(existing)) {
        if (sameFile(existing, source.facts())) {
            return;
        }
        if (!S_ISREG(existing.st_mode) && !S_ISLNK(existing.st_mode)) {
            throw RunTimeError(Failure::PathFileAccess);
        }
        if (same(from, to)) {
            return;
        }
    }
    ReplacementFile copied(target);
    copyBytes(source, copied.file());
    if (findWorkFolder(to) == nullptr) {
        copied.place();
    } else {
        copied.placeUnsynced();
    }
}

void PosixFiles::publish(const std::string& from, const std::string& to) {
    const NativeFile source(opened(from));
    const FilePlace target = place(to);
    ReplacementFile copied(target);
    copyBytes(source, copied.file());
    copied.file().copyRightsFrom(target.folder());
    copied.place();
}

void PosixFiles::write(const std::string& path, std::span<const std::uint8_t> bytes) {
    ReplacementFile written(place(path));
    written.file().writeAll({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    written.placeUnsynced();
}

void PosixFiles::remove(const std::string& path) {
    if (!place(path).unlink()) {
        raiseErrno(errno);
    }
}

void PosixFiles::rename(const std::string& from, const std::string& to) {
    if (renameToFreeName(place(from), place(to)) != 0) {
        raiseErrno(errno);
    }
}

void PosixFiles::append(const std::string& path, const std::string& record) {
    const NativeFile log = openLog(place(path));
    log.append(log.endsInALine() ? "\r\n" + record : record);
}

std::string PosixFiles::read(const std::string& path, std::size_t limit) const {
    return readWholeFile(nativePath(path), limit);
}

/// If the folder exists and is open to other users, its permissions are restricted, because it belongs to this program.
std::string PosixFiles::privateFolder() {
    const std::string folder = stateFolder() + "/orv";
    std::error_code failure;
    std::filesystem::create_directories(stateFolder(), failure);
    static_cast<void>(::mkdir(folder.c_str(), kFolderOwnerOnly));
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat facts {};
    if (!opened || ::fstat(opened.number(), &facts) != 0 || facts.st_uid != ::geteuid() ||
        ::fchmod(opened.number(), kFolderOwnerOnly) != 0) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    return folder;
}

std::string PosixFiles::nativePath(const std::string& path) const {
    WorkFolder* const own = findWorkFolder(path);
    return own != nullptr && *own ? own->nativePath(path.substr(nameBegin(path))) : paths_.toNative(path);
}

std::string PosixFiles::systemPath(const std::string& nativePath) const {
    const std::string path = paths_.toSystem(nativePath);
    return findWorkFolder(path) != nullptr ? nativePath : path;
}

}  // namespace orv
