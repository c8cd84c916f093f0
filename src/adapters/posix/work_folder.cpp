#include "adapters/posix/work_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <random>

#include "adapters/posix/native_file.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr mode_t kOwnerOnly = 0600;
constexpr mode_t kFolderOwnerOnly = 0700;
constexpr mode_t kOthers = 077;
constexpr int kMostAttempts = 100;
constexpr const char* kBegin = ".orv-run-";
constexpr const char* kLock = "lock";
constexpr const char* kNotPrivate =
    "作業用フォルダーを利用者専用にできません。設定「TMP」のフォルダーがあるディスクを確認してください。";

/// Another user could have put another folder in its place before it was opened.
bool isOfThisUserAlone(const Descriptor& folder) {
    struct stat facts {};
    return ::fstat(folder.number(), &facts) == 0 && facts.st_uid == ::geteuid() && (facts.st_mode & kOthers) == 0;
}

bool isRemoved(const Descriptor& folder) {
    struct stat facts {};
    return ::fstat(folder.number(), &facts) == 0 && facts.st_nlink == 0;
}

std::string freshName() {
    std::random_device random;
    return std::string(kBegin) + std::to_string(random()) + "-" + std::to_string(random());
}

/// Removes the lock last, so that the next run continues an interrupted removal.
void removeContents(const FilePlace& lock) {
    forEachName(lock.folder(), [&](const std::string& name) {
        if (name != kLock) {
            static_cast<void>(lock.sibling(name).unlink());
        }
    });
    static_cast<void>(lock.unlink());
}

/// A folder without a lock does not belong to a run, or its run has just created it. It is removed only if it is empty.
void removeUnlessHeld(const FilePlace& place) {
    const auto folder = std::make_shared<const Descriptor>(place.tryOpen(O_RDONLY | O_DIRECTORY));
    if (!*folder || !isOfThisUserAlone(*folder)) {
        return;
    }
    const FilePlace lock(folder, kLock);
    const Descriptor held = lock.tryOpen(O_RDWR);
    if (held && !tryLock(held)) {
        return;
    }
    if (held) {
        removeContents(lock);
    }
    ::unlinkat(place.folder(), place.name(), AT_REMOVEDIR);
}

}  // namespace

void WorkFolder::removeDead() const {
    try {
        const FilePlace shared(shared_);
        forEachName(shared.folder(), [&](const std::string& name) {
            if (name.starts_with(kBegin)) {
                removeUnlessHeld(shared.sibling(name));
            }
        });
    } catch (const RunTimeError&) {  // the first use of the folder reports it
    }
}

FilePlace WorkFolder::place(const std::string& name) {
    if (!folder_ || isRemoved(*folder_)) {
        make();
    }
    return {folder_, name};
}

std::string WorkFolder::nativePath(const std::string& name) const {
    const std::string any = shared_.base + "/" + shared_.below;
    return any.substr(0, any.rfind('/') + 1) + name_ + "/" + name;
}

/// A user who can write the shared folder can occupy any name and remove any folder that is still empty.
void WorkFolder::make() {
    const FilePlace shared(shared_);
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        name_ = freshName();
        if (tryToMake(shared.sibling(name_))) {
            return;
        }
    }
    throw RunTimeError(Failure::PathFileAccess, kNotPrivate);
}

/// False if the name is occupied or the new folder was removed meanwhile, for example by a run that treated it as a
/// leftover.
bool WorkFolder::tryToMake(const FilePlace& place) {
    if (::mkdirat(place.folder(), place.name(), kFolderOwnerOnly) != 0 && errno != EEXIST) {
        raiseErrno(errno);
    }
    auto folder = std::make_shared<const Descriptor>(place.tryOpen(O_RDONLY | O_DIRECTORY));
    if (*folder && !isOfThisUserAlone(*folder)) {
        return false;
    }
    lock_ = *folder ? FilePlace(folder, kLock).tryOpen(O_RDWR | O_CREAT | O_EXCL, kOwnerOnly) : Descriptor();
    if (!lock_ && errno != ENOENT && errno != EEXIST) {
        raiseErrno(errno);
    }
    if (!lock_ || !waitForLock(lock_)) {
        return false;
    }
    folder_ = std::move(folder);
    return true;
}

}  // namespace orv
