#include "adapters/win32/held_place.h"

#include "adapters/win32/wide_text.h"
#include "adapters/win32/win32_failure.h"
#include "adapters/win32/win32_file.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr DWORD kSharedByAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// Without sharing of deletion, the folder cannot be renamed or replaced while the handle is open.
constexpr DWORD kSharedButNotRenamed = FILE_SHARE_READ | FILE_SHARE_WRITE;

Win32Handle openShared(const std::string& nativePath, const FileOpening& opening, DWORD sharing) {
    // With backup semantics, folders can be opened too.
    const DWORD flags = FILE_ATTRIBUTE_NORMAL | FILE_FLAG_BACKUP_SEMANTICS;
    return Win32Handle(::CreateFileW(longPath(nativePath).c_str(), opening.access, sharing, opening.security,
                                     opening.disposition,
                                     opening.followsLinks ? flags : flags | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}

Win32Handle holdFolderOrLink(const std::string& nativeFolder) {
    Win32Handle folder = openShared(nativeFolder, {.access = FILE_LIST_DIRECTORY}, kSharedButNotRenamed);
    if (!folder && ::GetLastError() == ERROR_FILE_NOT_FOUND) {
        raiseError(ERROR_PATH_NOT_FOUND);
    }
    if (!folder) {
        raiseLastError();
    }
    BY_HANDLE_FILE_INFORMATION facts{};
    if (::GetFileInformationByHandle(folder.get(), &facts) == 0) {
        raiseLastError();
    }
    if ((facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        raiseError(ERROR_PATH_NOT_FOUND);
    }
    return folder;
}

}  // namespace

Win32Handle openNative(const std::string& nativePath, const FileOpening& opening) {
    return openShared(nativePath, opening, kSharedByAll);
}

Win32Handle holdFolder(const std::string& nativeFolder) {
    Win32Handle folder = holdFolderOrLink(nativeFolder);
    if (isLink(folder.get())) {
        raiseLink();
    }
    return folder;
}

bool isLink(HANDLE opened) {
    BY_HANDLE_FILE_INFORMATION facts{};
    if (::GetFileInformationByHandle(opened, &facts) == 0 ||
        (facts.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return false;
    }
    FILE_ATTRIBUTE_TAG_INFO tag{};
    return ::GetFileInformationByHandleEx(opened, FileAttributeTagInfo, &tag, sizeof tag) == 0 ||
           IsReparseTagNameSurrogate(tag.ReparseTag);
}

HeldPlace::HeldPlace(const DrivePaths& paths, const std::string& path) : path_(paths.toNative(path)) {
    const std::size_t install = paths.installFolderIn(path_);
    const std::size_t last = path_.rfind('\\');
    isChosen_ = install == 0;
    if (last == std::string::npos) {
        raiseError(ERROR_INVALID_NAME);
    }
    Folders held;
    std::size_t end = isChosen_ ? last : install;
    held.push_back(holdFolderOrLink(path_.substr(0, end + 1)));
    while ((end = path_.find('\\', end + 1)) <= last && end != std::string::npos) {
        held.push_back(holdFolder(path_.substr(0, end)));
    }
    held_ = std::make_shared<const Folders>(std::move(held));
}

HeldPlace::HeldPlace(std::string nativeFolder, const std::string& name)
    : path_(std::move(nativeFolder) + "\\" + name), held_(std::make_shared<const Folders>()) {}

std::string HeldPlace::folder() const { return path_.substr(0, path_.rfind('\\')); }

std::string HeldPlace::name() const { return path_.substr(path_.rfind('\\') + 1); }

HeldPlace HeldPlace::sibling(const std::string& name) const {
    HeldPlace other = *this;
    other.path_ = folder() + "\\" + name;
    return other;
}

Win32Handle HeldPlace::tryOpen(const FileOpening& opening) const {
    Win32Handle opened;
    static_cast<void>(retryWhileInUse([&] {
        opened = openNative(path_, opening);
        return static_cast<bool>(opened) || ::GetLastError() == ERROR_ACCESS_DENIED;
    }));
    return opened;
}

Win32Handle HeldPlace::open(const FileOpening& opening) const {
    Win32Handle opened = tryOpen(opening);
    if (!opened) {
        raiseLastError();
    }
    if (isLink(opened.get())) {
        raiseLink();
    }
    return opened;
}

bool HeldPlace::holdsFile() const {
    Win32Handle opened = tryOpen({});
    if (!opened || isLink(opened.get())) {
        return false;
    }
    const Win32File file(std::move(opened));
    return true;
}

void HeldPlace::remove() const {
    if (!retryWhileInUse([this] { return ::DeleteFileW(longPath(path_).c_str()) != 0; })) {
        raiseLastError();
    }
}

void HeldPlace::renameTo(const HeldPlace& target) const {
    const std::wstring from = longPath(path_);
    const std::wstring to = longPath(target.path_);
    if (!retryWhileInUse([&] { return ::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0; })) {
        raiseLastError();
    }
}

void forEachName(const std::string& nativeFolder, const std::function<void(const std::string& name)>& act) {
    WIN32_FIND_DATAW entry{};
    const HANDLE search = ::FindFirstFileW((longPath(nativeFolder) + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) {
        return;
    }
    const std::unique_ptr<void, decltype(&::FindClose)> closed(search, &::FindClose);
    do {
        const std::string name = fromWide(entry.cFileName);
        if (name != "." && name != "..") {
            act(name);
        }
    } while (::FindNextFileW(search, &entry) != 0);
}

}  // namespace orv
