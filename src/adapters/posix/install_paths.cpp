#include "adapters/posix/install_paths.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>
#include <vector>

#include "adapters/machine/path_names.h"
#include "platform/ascii.h"
#include "platform/run_time_error.h"
#include "platform/utf8.h"

namespace orv {
namespace {

using Names = std::vector<std::string_view>;

bool isThere(const std::string& nativePath) {
    struct stat facts {};
    return ::lstat(nativePath.c_str(), &facts) == 0;
}

/// Returns the entry of `folder` that equals `name` in another case, or "". Of several it is the first in byte order,
/// so that the result is always the same.
std::string inOtherCase(const std::string& folder, std::string_view name) {
    std::string found;
    const std::string wanted = upperCase(name);
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), &::closedir);
    while (const dirent* entry = entries ? ::readdir(entries.get()) : nullptr) {
        const std::string_view candidate = entry->d_name;
        if (upperCase(candidate) == wanted && (found.empty() || candidate < found)) {
            found = candidate;
        }
    }
    return found;
}

std::string asSpelled(std::string place, const Names& names) {
    for (const auto name : names) {
        place += "/" + std::string(name);
    }
    return place;
}

/// Most paths have the right spelling. Then one access is enough instead of one per folder.
std::string follow(std::string place, const Names& names) {
    if (std::string spelled = asSpelled(place, names); isThere(spelled)) {
        return spelled;
    }
    bool known = true;
    for (const auto name : names) {
        std::string next = place + "/" + std::string(name);
        if (known && !isThere(next)) {
            const std::string other = inOtherCase(place.empty() ? "/" : place, name);
            known = !other.empty();
            next = known ? place + "/" + other : next;
        }
        place = std::move(next);
    }
    return place.empty() ? "/" : place;
}

/// A native path to which the system's code has appended names with backslashes is resolved by case from there on.
std::string followNative(const std::string& path) {
    const std::size_t built = path.find('\\');
    if (built == std::string::npos || isThere(path)) {
        return path;
    }
    return follow(path.substr(0, built), splitPath(std::string_view(path).substr(built)));
}

std::string withoutTrailingSlash(const std::string& folder) {
    std::string text = std::filesystem::path(folder).lexically_normal().string();
    while (text.ends_with('/')) {
        text.pop_back();
    }
    return text;
}

}  // namespace

NativePath chosenPath(const std::string& nativePath) {
    const std::string path = nativePath.substr(0, nativePath.find_last_not_of('/') + 1);
    const std::size_t end = path.rfind('/');
    return {path.substr(0, end), path.substr(end + 1), true};
}

InstallPaths::InstallPaths(const std::string& nativeRoot, const std::string& nativeProgramFolder)
    : root_(withoutTrailingSlash(nativeRoot)), programFolder_(toSystem(withoutTrailingSlash(nativeProgramFolder))) {}

std::string InstallPaths::toNative(const std::string& path) const {
    const std::string placed = withPlace(path);
    return hasDrive(placed) ? onDrive(placed[0], std::string_view(placed).substr(2)) : followNative(placed);
}

NativePath InstallPaths::split(const std::string& path) const {
    const std::string native = toNative(path);
    if (native.starts_with(root_ + "/")) {
        return {root_, native.substr(root_.size() + 1)};
    }
    const std::string placed = withPlace(path);
    if (native == placed) {
        return chosenPath(native);
    }
    const std::size_t end = placed.find('\\');
    return {native.substr(0, end), native.substr(std::min(end + 1, native.size()))};
}

/// Returns a path with a drive, or a native one.
std::string InstallPaths::withPlace(const std::string& path) const {
    if (path.empty() || path.find('\0') != std::string::npos) {
        throw RunTimeError(Failure::BadFileName);
    }
    if (path.front() == '/' || hasDrive(path)) {
        return path;
    }
    if (path.front() == '\\') {
        return (hasDrive(programFolder_) ? programFolder_.substr(0, 2) : "C:") + path;
    }
    return programFolder_ + "\\" + path;
}

std::string InstallPaths::onDrive(char letter, std::string_view path) const {
    const char drive = upperAscii(letter);
    Names names = splitPath(path);
    names.insert(names.begin(), std::string_view(&drive, 1));
    return follow(root_, names);
}

std::string InstallPaths::toSystem(const std::string& nativePath) const {
    const std::string prefix = root_ + "/";
    const std::string rest = nativePath.starts_with(prefix) ? nativePath.substr(prefix.size()) : "";
    const bool onADrive = !rest.empty() && isAsciiCapital(rest[0]) && (rest.size() == 1 || rest[1] == '/');
    if (!onADrive || rest.find('\\') != std::string::npos) {
        return nativePath;
    }
    std::string path = rest.substr(0, 1) + ":" + rest.substr(1);
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

std::string runningProgramFolder() {
    std::error_code failure;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (failure) {
        throw RunTimeError(Failure::PathNotFound);
    }
    return program.parent_path().string();
}

std::string findInstallRoot(const std::string& nativeProgramFolder) {
    const std::filesystem::path programFolder = withoutTrailingSlash(nativeProgramFolder);
    for (auto folder = programFolder; folder.has_relative_path(); folder = folder.parent_path()) {
        const std::string name = folder.filename().string();
        if (name.size() == 1 && isAsciiCapital(name[0])) {
            return folder.parent_path().string();
        }
    }
    return programFolder.parent_path().string();
}

}  // namespace orv
