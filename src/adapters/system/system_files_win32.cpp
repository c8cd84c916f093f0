#include "adapters/system/system_files.h"
#include "adapters/win32/access_list.h"
#include "adapters/win32/wide_text.h"
#include "adapters/win32/win32_failure.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

std::string localData() {
    const std::string given = environmentValue(L"LOCALAPPDATA");
    return given.empty() ? environmentValue(L"USERPROFILE") + "\\AppData\\Local" : given;
}

}  // namespace

SystemFiles::Kind SystemFiles::readKind(const std::string& path) const {
    SystemWorkFolder* const own = findWorkFolder(path);
    if (own != nullptr && !own->isMade()) {
        return Kind::Nothing;
    }
    const DWORD attributes = ::GetFileAttributesW(longPath(nativePath(path)).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        if (!saysNothingIsThere(::GetLastError())) {
            raiseLastError();
        }
        return Kind::Nothing;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return Kind::Folder;
    }
    return (attributes & FILE_ATTRIBUTE_DEVICE) != 0 ? Kind::Other : Kind::File;
}

std::uint64_t SystemFiles::fileSize(const std::string& path) const {
    const Win32Handle file =
        openNative(nativePath(path), {.access = FILE_READ_ATTRIBUTES, .followsLinks = findWorkFolder(path) == nullptr});
    if (!file) {
        raiseLastError();
    }
    BY_HANDLE_FILE_INFORMATION facts{};
    if (::GetFileInformationByHandle(file.get(), &facts) == 0) {
        raiseLastError();
    }
    if ((facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    return std::uint64_t{facts.nFileSizeHigh} << 32 | facts.nFileSizeLow;
}

/// An existing folder of that name is the program's own, so other users lose their access.
std::string SystemFiles::privateFolder() {
    const std::string folder = localData() + "\\orv";
    PrivateAccess access;
    static_cast<void>(::CreateDirectoryW(longPath(folder).c_str(), access.attributes()));
    const Win32Handle opened = openNative(folder, {.access = READ_CONTROL | WRITE_DAC | FILE_READ_ATTRIBUTES});
    if (!opened || isLink(opened.get()) || !isOwnedByThisUser(opened.get()) || !makePrivate(opened.get())) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    return folder;
}

std::string SystemFiles::systemPath(const std::string& nativePath) const {
    const std::string path = paths_.toSystem(nativePath);
    if (findWorkFolder(path) == nullptr) {
        return path;
    }
    return path == nativePath ? DrivePaths::exact(nativePath) : nativePath;
}

}  // namespace orv
