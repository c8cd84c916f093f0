#include "adapters/win32/drive_paths.h"

#include <algorithm>

#include "adapters/machine/path_names.h"
#include "adapters/win32/wide_text.h"
#include "adapters/win32/windows_api.h"
#include "platform/run_time_error.h"
#include "platform/utf8.h"

namespace orv {
namespace {

constexpr std::size_t kShareNames = 2;  // the server and its share
constexpr std::size_t kLongestName = 255;
constexpr std::string_view kExact = "\\\\?\\";

bool isSeparator(char c) { return c == '\\' || c == '/'; }

bool namesServer(std::string_view path) { return path.size() > 2 && isSeparator(path[0]) && isSeparator(path[1]); }

bool sameName(std::string_view a, std::string_view b) { return upperCase(a) == upperCase(b); }

std::string joined(std::string path, const std::vector<std::string_view>& names) {
    for (const auto name : names) {
        path += "\\" + std::string(name);
    }
    return path;
}

/// Resolves the names after the server and the share, which ".." does not leave.
std::string onServer(std::string_view path) {
    std::string place = "\\";
    for (std::size_t names = 0; names < kShareNames; ++names) {
        path.remove_prefix(std::min(path.find_first_not_of("\\/"), path.size()));
        const auto end = std::min(path.find_first_of("\\/"), path.size());
        place += "\\" + std::string(path.substr(0, end));
        path.remove_prefix(end);
    }
    return joined(std::move(place), splitPath(path));
}

/// The drive's folder itself keeps its separator: "C:" alone is the drive's current folder.
std::string onDrive(char letter, std::string_view path) {
    const std::string place = joined(std::string(1, upperAscii(letter)) + ":", splitPath(path));
    return place.size() == 2 ? place + "\\" : place;
}

bool isFolder(const std::string& nativePath) {
    const DWORD attributes = ::GetFileAttributesW(longPath(nativePath).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::string parentPath(const std::string& nativePath) {
    const auto end = nativePath.rfind('\\');
    return end == std::string::npos ? nativePath : nativePath.substr(0, end);
}

std::string normal(const std::string& path) {
    if (path.empty()) {
        return path;
    }
    return namesServer(path) ? onServer(path) : onDrive(path[0], std::string_view(path).substr(2));
}

}  // namespace

DrivePaths::DrivePaths(const std::string& root, const std::string& programFolder)
    : root_(normal(root)),
      programFolder_(toSystem(normal(programFolder))),
      installFolder_(root_.empty() ? parentPath(programFolder_) : root_) {}

std::string DrivePaths::toNative(const std::string& path) const {
    if (path.empty() || path.find('\0') != std::string::npos) {
        throw RunTimeError(Failure::BadFileName);
    }
    const std::string native = absolute(path.starts_with(kExact) ? path.substr(kExact.size()) : path);
    const std::vector<std::string_view> names = splitPath(native);
    const bool isTooLong = std::ranges::any_of(names, [](auto name) { return toWide(name).size() > kLongestName; });
    if (isTooLong || native.find(':', 2) != std::string::npos) {
        throw RunTimeError(Failure::BadFileName);
    }
    return inRoot(native);
}

std::string DrivePaths::absolute(const std::string& path) const {
    if (namesServer(path)) {
        return onServer(path);
    }
    if (hasDrive(path)) {
        return onDrive(path[0], std::string_view(path).substr(2));
    }
    if (!isSeparator(path.front())) {
        return normal(programFolder_ + "\\" + path);
    }
    return hasDrive(programFolder_) ? onDrive(programFolder_[0], path) : onServer(programFolder_ + "\\..\\" + path);
}

std::string DrivePaths::inRoot(const std::string& nativePath) const {
    const bool isNative = root_.empty() || !hasDrive(nativePath) || installFolderIn(nativePath) > 0;
    if (isNative || !isFolder(root_ + "\\" + nativePath[0])) {
        return nativePath;
    }
    return joined(root_ + "\\" + nativePath[0], splitPath(std::string_view(nativePath).substr(2)));
}

std::string DrivePaths::exact(const std::string& nativePath) { return std::string(kExact) + nativePath; }

std::string DrivePaths::toSystem(const std::string& nativePath) const {
    const std::string native = hasDrive(nativePath) || namesServer(nativePath) ? normal(nativePath) : nativePath;
    const std::string drive = root_ + "\\";
    const std::string_view rest = std::string_view(native).substr(std::min(drive.size(), native.size()));
    const bool onADrive = !root_.empty() && sameName(native.substr(0, drive.size()), drive) && !rest.empty() &&
                          isAsciiLetter(rest[0]) && (rest.size() == 1 || rest[1] == '\\');
    return onADrive ? onDrive(rest[0], rest.substr(1)) : native;
}

std::size_t DrivePaths::installFolderIn(const std::string& nativePath) const {
    const std::string folder = installFolder_ + "\\";
    return sameName(nativePath.substr(0, folder.size()), folder) ? installFolder_.size() : 0;
}

std::string runningProgramFolder() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) == path.size()) {
        path.resize(path.size() * 2);
    }
    if (length == 0) {
        throw RunTimeError(Failure::PathNotFound);
    }
    path.resize(length);
    return parentPath(fromWide(path));
}

std::string findInstallRoot(const std::string&) { return {}; }

std::wstring longPath(const std::string& nativePath) {
    const std::string native = hasDrive(nativePath) || namesServer(nativePath) ? normal(nativePath) : nativePath;
    return toWide(namesServer(native) ? "\\\\?\\UNC" + native.substr(1) : "\\\\?\\" + native);
}

}  // namespace orv
