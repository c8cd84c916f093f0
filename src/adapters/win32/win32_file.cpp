#include "adapters/win32/win32_file.h"

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <atomic>
#include <limits>
#include <utility>

#include "adapters/machine/whole_file.h"
#include "adapters/win32/access_list.h"
#include "adapters/win32/win32_failure.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr std::string_view kNextToBegin = ".orv-";
constexpr std::string_view kNextToEnd = ".tmp";
constexpr DWORD kLockPlace = 0x7FFFFFFF;  // the upper half of the offset, after any content
constexpr int kMostAttempts = 3;
constexpr DWORD kReadAndWrite = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD kLargestTransfer = 1U << 30;

std::uint64_t joined(DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; }

DWORD atMost(std::size_t size) { return static_cast<DWORD>(std::min<std::size_t>(size, kLargestTransfer)); }

/// A run that still exists holds the lock of its file, on whichever computer it runs.
void removeUnlessHeld(const HeldPlace& place) {
    const Win32Handle file = openNative(place.path(), {.access = kReadAndWrite});
    if (file && !isLink(file.get()) && tryLock(file.get())) {
        static_cast<void>(::DeleteFileW(longPath(place.path()).c_str()));
    }
}

void removeLeftovers(const HeldPlace& target) {
    forEachName(target.folder(), [&](const std::string& name) {
        if (name.starts_with(kNextToBegin) && name.ends_with(kNextToEnd)) {
            removeUnlessHeld(target.sibling(name));
        }
    });
}

HeldPlace freshPlace(const HeldPlace& target) {
    static std::atomic<unsigned> count{0};
    return target.sibling(std::string(kNextToBegin) + std::to_string(::GetCurrentProcessId()) + "-" +
                          std::to_string(++count) + std::string(kNextToEnd));
}

/// A user who can write a log might not be able to read it.
Win32Handle existingLog(const HeldPlace& place) {
    Win32Handle log = place.tryOpen({.access = kReadAndWrite});
    return log || ::GetLastError() != ERROR_ACCESS_DENIED ? std::move(log) : place.tryOpen({.access = GENERIC_WRITE});
}

/// Another run can lock the new file first, because it looks like a leftover. Then the next name is used.
std::unique_ptr<Win32File> createNextTo(const HeldPlace& target, FileAccess access, HeldPlace& place) {
    removeLeftovers(target);
    PrivateAccess forThisUser;
    FileOpening opening{.access = kReadAndWrite, .disposition = CREATE_NEW};
    opening.security = access == FileAccess::Private ? forThisUser.attributes() : nullptr;
    for (;;) {
        place = freshPlace(target);
        Win32Handle created = place.tryOpen(opening);
        if (created && tryLock(created.get())) {
            return std::make_unique<Win32File>(std::move(created));
        }
        if (!created && ::GetLastError() != ERROR_FILE_EXISTS) {
            raiseLastError();
        }
    }
}

}  // namespace

Win32File::Win32File(Win32Handle opened) : handle_(std::move(opened)) {
    BY_HANDLE_FILE_INFORMATION facts{};
    if (::GetFileType(handle_.get()) != FILE_TYPE_DISK || ::GetFileInformationByHandle(handle_.get(), &facts) == 0 ||
        (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw RunTimeError(Failure::PathFileAccess);
    }
    size_ = joined(facts.nFileSizeHigh, facts.nFileSizeLow);
}

std::size_t Win32File::read(char* buffer, std::size_t size) const {
    DWORD count = 0;
    const bool worked =
        retryWhileInUse([&] { return ::ReadFile(handle_.get(), buffer, atMost(size), &count, nullptr) != 0; });
    if (!worked) {
        raiseLastError();
    }
    return count;
}

void Win32File::writeAll(std::string_view bytes) const {
    while (!bytes.empty()) {
        DWORD count = 0;
        if (::WriteFile(handle_.get(), bytes.data(), atMost(bytes.size()), &count, nullptr) == 0) {
            raiseLastError();
        }
        bytes.remove_prefix(count);
    }
}

/// Only while nothing of another program is after the incomplete record.
void Win32File::append(std::string_view bytes) const {
    OVERLAPPED atEnd{};
    atEnd.Offset = std::numeric_limits<DWORD>::max();
    atEnd.OffsetHigh = std::numeric_limits<DWORD>::max();
    DWORD count = 0;
    const bool worked = ::WriteFile(handle_.get(), bytes.data(), atMost(bytes.size()), &count, &atEnd) != 0;
    if (worked && count == bytes.size()) {
        return;
    }
    const DWORD error = worked ? ERROR_DISK_FULL : ::GetLastError();
    LARGE_INTEGER now{};
    if (count > 0 && ::GetFileSizeEx(handle_.get(), &now) != 0 &&
        std::cmp_equal(now.QuadPart, size_ + std::uint64_t{count})) {
        LARGE_INTEGER before{};
        before.QuadPart = static_cast<LONGLONG>(size_);
        ::SetFilePointerEx(handle_.get(), before, nullptr, FILE_BEGIN);
        ::SetEndOfFile(handle_.get());
    }
    raiseError(error);
}

bool Win32File::endsInALine() const {
    if (size_ == 0) {
        return false;
    }
    OVERLAPPED atLast{};
    atLast.Offset = static_cast<DWORD>(size_ - 1);
    atLast.OffsetHigh = static_cast<DWORD>((size_ - 1) >> 32);
    char last = 0;
    DWORD count = 0;
    return ::ReadFile(handle_.get(), &last, 1, &count, &atLast) != 0 && count == 1 && last != '\n';
}

void Win32File::flush() const {
    if (::FlushFileBuffers(handle_.get()) == 0) {
        raiseLastError();
    }
}

Win32File openLog(const HeldPlace& place) {
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        if (Win32Handle existing = existingLog(place)) {
            if (isLink(existing.get())) {
                raiseLink();
            }
            requireOneName(existing);
            return Win32File(std::move(existing));
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

void requireOneName(const Win32Handle& file) {
    BY_HANDLE_FILE_INFORMATION facts{};
    if (::GetFileInformationByHandle(file.get(), &facts) != 0 &&
        (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 && facts.nNumberOfLinks > 1) {
        raiseLink();
    }
}

FileStream toStream(Win32Handle opened) {
    Win32File file(std::move(opened));
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

bool tryLock(HANDLE file) {
    OVERLAPPED place{};
    place.OffsetHigh = kLockPlace;
    return ::LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0;
}

FileNextTo::FileNextTo(const HeldPlace& target, FileAccess access)
    : target_(target), place_(target), file_(createNextTo(target_, access, place_)) {}

FileNextTo::~FileNextTo() {
    if (!placed_) {
        file_.reset();
        static_cast<void>(::DeleteFileW(longPath(place_.path()).c_str()));
    }
}

void FileNextTo::place() {
    file_->flush();
    rename(MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

void FileNextTo::placeUnsynced() { rename(MOVEFILE_REPLACE_EXISTING); }

void FileNextTo::rename(DWORD flags) {
    const std::wstring from = longPath(place_.path());
    const std::wstring to = longPath(target_.path());
    if (!retryWhileInUse([&] { return ::MoveFileExW(from.c_str(), to.c_str(), flags) != 0; })) {
        raiseLastError();
    }
    file_.reset();
    placed_ = true;
}

std::string readWholeFile(const std::string& nativePath, std::size_t limit) {
    Win32Handle opened;
    static_cast<void>(retryWhileInUse([&] {
        opened = openNative(nativePath, {.followsLinks = true});
        return static_cast<bool>(opened) || ::GetLastError() == ERROR_ACCESS_DENIED;
    }));
    if (!opened) {
        raiseLastError();
    }
    return readWhole(Win32File(std::move(opened)), limit);
}

}  // namespace orv
