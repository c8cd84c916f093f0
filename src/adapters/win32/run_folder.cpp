#include "adapters/win32/run_folder.h"

#include <random>

#include "adapters/win32/access_list.h"
#include "adapters/win32/win32_failure.h"
#include "adapters/win32/win32_file.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr int kMostAttempts = 100;
constexpr const char* kBegin = ".orv-run-";
constexpr const char* kLock = "lock";
constexpr const char* kNotPrivate =
    "作業用フォルダーを利用者専用にできません。設定「TMP」のフォルダーがあるディスクを確認してください。";

std::string freshName() {
    std::random_device random;
    return std::string(kBegin) + std::to_string(random()) + "-" + std::to_string(random());
}

bool isThere(const std::string& nativePath) {
    return ::GetFileAttributesW(longPath(nativePath).c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// The lock is the last file, so that an interrupted removal is continued by the next one.
void removeContents(const std::string& folder) {
    forEachName(folder, [&](const std::string& name) {
        if (name != kLock) {
            static_cast<void>(::DeleteFileW(longPath(folder + "\\" + name).c_str()));
        }
    });
}

/// A folder without a lock is not that of a run, or is that of a run that has just created it: it is removed only if it
/// is empty.
void removeUnlessHeld(const std::string& folder) {
    {
        const Win32Handle opened = openNative(folder, {.access = READ_CONTROL | FILE_READ_ATTRIBUTES});
        if (!opened || isLink(opened.get()) || !isOwnedByThisUser(opened.get())) {
            return;
        }
        const HeldPlace lock(folder, kLock);
        const Win32Handle held = openNative(lock.path(), {.access = GENERIC_READ | GENERIC_WRITE});
        if (held && !tryLock(held.get())) {
            return;
        }
        if (held) {
            removeContents(folder);
            static_cast<void>(::DeleteFileW(longPath(lock.path()).c_str()));
        }
    }
    ::RemoveDirectoryW(longPath(folder).c_str());
}

}  // namespace

void RunFolder::removeDead() const {
    try {
        forEachName(shared_, [this](const std::string& name) {
            if (name.starts_with(kBegin)) {
                removeUnlessHeld(shared_ + "\\" + name);
            }
        });
    } catch (const RunTimeError&) {  // the first use of the folder reports it
    }
}

HeldPlace RunFolder::place(const std::string& name) {
    if (folder_.empty() || !isThere(folder_)) {
        make();
    }
    return {folder_, name};
}

/// Any user who can write to the shared folder can take a name there.
void RunFolder::make() {
    const HeldPlace shared(paths_, shared_ + "\\" + kBegin);
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        if (tryToMake(shared.sibling(freshName()).path())) {
            return;
        }
    }
    throw RunTimeError(Failure::PathFileAccess, kNotPrivate);
}

/// False if the name is taken, or if another run removed the new folder because it was empty.
bool RunFolder::tryToMake(const std::string& folder) {
    PrivateAccess access;
    if (::CreateDirectoryW(longPath(folder).c_str(), access.attributes()) == 0) {
        if (::GetLastError() == ERROR_ALREADY_EXISTS) {
            return false;
        }
        raiseLastError();
    }
    Win32Handle lock = openNative(
        folder + "\\" + kLock,
        {.access = GENERIC_READ | GENERIC_WRITE, .disposition = CREATE_NEW, .security = access.attributes()});
    if (!lock || !tryLock(lock.get())) {
        return false;
    }
    lock_ = std::move(lock);
    held_ = holdFolder(folder);
    folder_ = folder;
    return true;
}

}  // namespace orv
