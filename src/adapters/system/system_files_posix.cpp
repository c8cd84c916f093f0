#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "adapters/machine/path_names.h"
#include "adapters/system/system_files.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr mode_t kFolderOwnerOnly = 0700;

bool saysNothingIsThere(int error) {
    return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG || error == ELOOP || error == EINVAL;
}

/// Reads the facts of a file, which can be in the work folder. On false, errno holds the reason.
bool look(const SystemPaths& paths, SystemWorkFolder* own, const std::string& path, struct stat& facts) {
    if (own != nullptr) {
        errno = ENOENT;
        return own->isMade() && own->place(path.substr(nameBegin(path))).look(facts);
    }
    return ::stat(paths.toNative(path).c_str(), &facts) == 0;
}

std::string stateFolder() {
    if (const char* state = std::getenv("XDG_STATE_HOME"); state != nullptr && *state == '/') {
        return state;
    }
    const char* home = std::getenv("HOME");
    const passwd* user = home != nullptr ? nullptr : ::getpwuid(::geteuid());
    return std::string(home != nullptr ? home : user != nullptr ? user->pw_dir : "") + "/.local/state";
}

}  // namespace

SystemFiles::Kind SystemFiles::readKind(const std::string& path) const {
    struct stat facts {};
    if (look(paths_, findWorkFolder(path), path, facts)) {
        return S_ISREG(facts.st_mode) ? Kind::File : S_ISDIR(facts.st_mode) ? Kind::Folder : Kind::Other;
    }
    if (!saysNothingIsThere(errno)) {
        raiseErrno(errno, nativePath(path));
    }
    return Kind::Nothing;
}

std::uint64_t SystemFiles::fileSize(const std::string& path) const {
    struct stat facts {};
    if (!look(paths_, findWorkFolder(path), path, facts)) {
        raiseErrno(errno, nativePath(path));
    }
    if (!S_ISREG(facts.st_mode)) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    return static_cast<std::uint64_t>(facts.st_size);
}

/// If the folder exists and is open to other users, its permissions are restricted, because it belongs to this program.
std::string SystemFiles::privateFolder() {
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

std::string SystemFiles::systemPath(const std::string& nativePath) const {
    const std::string path = paths_.toSystem(nativePath);
    return findWorkFolder(path) != nullptr ? nativePath : path;
}

}  // namespace orv
