#include "private_folder.h"

#include "adapters/store/file_path.h"
#include "adapters/win32/access_list.h"
#include "adapters/win32/run_folder.h"
#include "adapters/win32/wide_text.h"
#include "adapters/win32/win32_failure.h"
#include "keeper.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFile = "store";

/// Throws for the thread's last error.
[[noreturn]] void raise(const std::string& path) {
    try {
        raiseLastError();
    } catch (const RunTimeError& reason) {
        throw KeeperFailure(path + ": " + reason.what());
    }
}

std::string canonicalFolder(const fs::path& folder) {
    std::error_code error;
    fs::path place = fs::canonical(folder.empty() ? "." : folder, error);
    if (error) {
        throw KeeperFailure(pathText(folder) + ": " + error.message());
    }
    return pathText(place.make_preferred());
}

}  // namespace

struct PrivateFolder::Parts {
    explicit Parts(const fs::path& folder) : parent(canonicalFolder(folder)) {}

    const DrivePaths paths{"", runningProgramFolder()};
    const std::string parent;
    std::unique_ptr<RunFolder> run = std::make_unique<RunFolder>(paths, parent);
};

PrivateFolder::PrivateFolder(const fs::path& parent) : parts_(std::make_unique<Parts>(parent)) {
    parts_->run->removeDead();
    const HeldPlace place = parts_->run->place(kFile);
    PrivateAccess access;
    if (!openNative(place.path(),
                    {.access = GENERIC_WRITE, .disposition = CREATE_NEW, .security = access.attributes()})) {
        raise(place.path());
    }
}

PrivateFolder::~PrivateFolder() {
    parts_->run.reset();
    RunFolder(parts_->paths, parts_->parent).removeDead();
}

std::string PrivateFolder::file() const { return parts_->run->nativePath(kFile); }

void PrivateFolder::publish(const std::string& target, const fs::path& rightsFrom) const {
    const std::wstring from = longPath(file());
    const std::wstring to = fs::absolute(filePath(target)).make_preferred().wstring();
    // Never replaces a file that was created meanwhile.
    if (!retryWhileInUse(
            [&] { return ::MoveFileExW(from.c_str(), longPath(fromWide(to)).c_str(), MOVEFILE_WRITE_THROUGH) != 0; })) {
        raise(target);
    }
    if (!rightsFrom.empty() &&
        !(fs::is_directory(rightsFrom) ? inheritAccess(to) : copyAccess(rightsFrom.wstring(), to))) {
        const DWORD error = ::GetLastError();
        ::DeleteFileW(to.c_str());
        ::SetLastError(error);
        raise(target);
    }
}

}  // namespace orv
