#include "adapters/win32/win32_files.h"

#include <fcntl.h>
#include <io.h>

#include <array>
#include <cstring>
#include <utility>

#include "adapters/win32/access_list.h"
#include "adapters/win32/wide_text.h"
#include "adapters/win32/win32_failure.h"
#include "platform/run_time_error.h"
#include "platform/utf8.h"

namespace orv {
namespace {

constexpr int kMostAttempts = 3;
constexpr DWORD kReadAndWrite = GENERIC_READ | GENERIC_WRITE;

bool sameContent(const Win32File& a, const Win32File& b) {
    std::array<char, 1 << 16> left{};
    std::array<char, 1 << 16> right{};
    std::size_t count = 0;
    if (a.size() != b.size()) {
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

void copyBytes(const Win32File& from, const Win32File& to) {
    std::array<char, 1 << 16> buffer{};
    while (const std::size_t count = from.read(buffer.data(), buffer.size())) {
        to.writeAll({buffer.data(), count});
    }
}

Win32File withOneName(Win32File file) {
    if (file.names() > 1) {
        raiseLink();
    }
    return file;
}

/// A user who can write a log might not be able to read it.
Win32Handle existingLog(const HeldPlace& place) {
    Win32Handle log = place.tryOpen({.access = kReadAndWrite});
    return log || ::GetLastError() != ERROR_ACCESS_DENIED ? std::move(log) : place.tryOpen({.access = GENERIC_WRITE});
}

/// Several users write one log. A new one gets the access list of its folder.
Win32File openLog(const HeldPlace& place) {
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        if (Win32Handle existing = existingLog(place)) {
            if (isLink(existing.get())) {
                raiseLink();
            }
            return withOneName(Win32File(std::move(existing)));
        }
        if (::GetLastError() != ERROR_FILE_NOT_FOUND) {
            raiseLastError();
        }
        if (Win32Handle created = place.tryOpen({.access = kReadAndWrite, .disposition = CREATE_NEW})) {
            return Win32File(std::move(created));
        }
        if (::GetLastError() != ERROR_FILE_EXISTS) {
            raiseLastError();
        }
    }
    throw RunTimeError(Failure::PathFileAccess);
}

std::size_t nameBegin(const std::string& path) { return path.find_last_of("\\/") + 1; }

std::string localData() {
    const std::string given = environmentValue(L"LOCALAPPDATA");
    return given.empty() ? environmentValue(L"USERPROFILE") + "\\AppData\\Local" : given;
}

}  // namespace

void Win32Files::workIn(const std::string& folder) {
    if (!folder.empty() && !runs_.contains(upperCase(folder))) {
        const std::string native = paths_.toNative(folder);
        runs_.try_emplace(upperCase(folder), paths_, native).first->second.removeDead();
    }
}

RunFolder* Win32Files::findRunFolder(const std::string& path) const {
    const auto found = runs_.find(upperCase(path.substr(0, nameBegin(path))));
    return found == runs_.end() || path.ends_with('\\') ? nullptr : &found->second;
}

HeldPlace Win32Files::place(const std::string& path) const {
    RunFolder* const own = findRunFolder(path);
    return own != nullptr ? own->place(path.substr(nameBegin(path))) : HeldPlace(paths_, paths_.toNative(path));
}

/// A file that the operator has chosen can have any number of names.
Win32File Win32Files::opened(const std::string& path) const {
    const HeldPlace from = place(path);
    Win32File file(from.open({}));
    return from.isChosen() ? std::move(file) : withOneName(std::move(file));
}

/// Returns INVALID_FILE_ATTRIBUTES if nothing is there. Throws if it cannot be determined.
DWORD Win32Files::readAttributes(const std::string& path) const {
    try {
        RunFolder* const own = findRunFolder(path);
        if (own != nullptr && !own->isMade()) {
            return INVALID_FILE_ATTRIBUTES;
        }
        const DWORD attributes = ::GetFileAttributesW(longPath(nativePath(path)).c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES && !saysNothingIsThere(::GetLastError())) {
            raiseLastError();
        }
        return attributes;
    } catch (const RunTimeError& failure) {
        if (failure.number() != static_cast<int>(Failure::BadFileName)) {
            throw;
        }
        return INVALID_FILE_ATTRIBUTES;
    }
}

bool Win32Files::exists(const std::string& path) const {
    const DWORD attributes = readAttributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) == 0;
}

bool Win32Files::folderExists(const std::string& path) const {
    const DWORD attributes = readAttributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::uint64_t Win32Files::fileSize(const std::string& path) const {
    const Win32Handle file =
        openNative(nativePath(path), {.access = FILE_READ_ATTRIBUTES, .followsLinks = findRunFolder(path) == nullptr});
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

bool Win32Files::canOpen(const std::string& path) const {
    try {
        static_cast<void>(opened(path));
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

FileStream Win32Files::open(const std::string& path) const {
    Win32File file = opened(path);
    const int descriptor = ::_open_osfhandle(reinterpret_cast<std::intptr_t>(file.handle()), _O_RDONLY | _O_BINARY);
    if (descriptor < 0) {
        throw RunTimeError(Failure::DeviceIo);
    }
    file.release();
    FileStream stream(::_fdopen(descriptor, "rb"));
    if (!stream) {
        ::_close(descriptor);
        throw RunTimeError(Failure::DeviceIo);
    }
    return stream;
}

bool Win32Files::same(const std::string& a, const std::string& b) const {
    try {
        return sameContent(opened(a), opened(b));
    } catch (const RunTimeError&) {
        return false;
    }
}

/// Does not wait for the disk for a working file, which exists only during the run.
void Win32Files::copy(const std::string& from, const std::string& to) {
    const Win32File source = opened(from);
    const HeldPlace target = place(to);
    if (Win32Handle existing = target.tryOpen({}); existing && !isLink(existing.get())) {
        const Win32File file(std::move(existing));
        if (file.isSame(source) || sameContent(opened(from), file)) {
            return;
        }
    }
    FileNextTo copied(target, FileAccess::Private);
    copyBytes(source, copied.file());
    if (findRunFolder(to) == nullptr) {
        copied.place();
    } else {
        copied.placeUnflushed();
    }
}

void Win32Files::publish(const std::string& from, const std::string& to) {
    const Win32File source = opened(from);
    FileNextTo copied(place(to), FileAccess::AsFolder);
    copyBytes(source, copied.file());
    copied.place();
}

void Win32Files::write(const std::string& path, std::span<const std::uint8_t> bytes) {
    FileNextTo written(place(path), FileAccess::Private);
    written.file().writeAll({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    written.placeUnflushed();
}

void Win32Files::remove(const std::string& path) {
    if (!place(path).remove()) {
        raiseLastError();
    }
}

void Win32Files::rename(const std::string& from, const std::string& to) {
    const HeldPlace source = place(from);
    const HeldPlace target = place(to);
    const std::wstring sourceName = longPath(source.path());
    const std::wstring targetName = longPath(target.path());
    if (!retryWhileInUse(
            [&] { return ::MoveFileExW(sourceName.c_str(), targetName.c_str(), MOVEFILE_WRITE_THROUGH) != 0; })) {
        raiseLastError();
    }
}

void Win32Files::append(const std::string& path, const std::string& record) {
    const Win32File log = openLog(place(path));
    log.append(log.endsInALine() ? "\r\n" + record : record);
}

std::string Win32Files::read(const std::string& path, std::size_t limit) const {
    return readWholeFile(nativePath(path), limit);
}

/// An existing folder of that name is the program's own, so other users lose their access.
std::string Win32Files::privateFolder() {
    const std::string folder = localData() + "\\orv";
    PrivateAccess access;
    static_cast<void>(::CreateDirectoryW(longPath(folder).c_str(), access.attributes()));
    const Win32Handle opened = openNative(folder, {.access = READ_CONTROL | WRITE_DAC | FILE_READ_ATTRIBUTES});
    if (!opened || isLink(opened.get()) || !isOwnedByThisUser(opened.get()) || !makePrivate(opened.get())) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    return folder;
}

std::string Win32Files::nativePath(const std::string& path) const {
    RunFolder* const own = findRunFolder(path);
    return own != nullptr && own->isMade() ? own->nativePath(path.substr(nameBegin(path))) : paths_.toNative(path);
}

std::string Win32Files::systemPath(const std::string& nativePath) const {
    const std::string path = paths_.toSystem(nativePath);
    if (findRunFolder(path) == nullptr) {
        return path;
    }
    return path == nativePath ? DrivePaths::exact(nativePath) : nativePath;
}

}  // namespace orv
