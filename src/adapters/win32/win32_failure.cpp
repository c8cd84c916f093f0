#include "adapters/win32/win32_failure.h"

#include <algorithm>
#include <array>

#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr const char* kInUse =
    "ほかのプログラムがファイルを使用中のため、開けません。ウイルス対策ソフトやほかの画面の処理が終わってから、"
    "もう一度操作してください。";
constexpr const char* kNoNetwork =
    "ネットワーク上のフォルダーに接続できません。ネットワークと、フォルダーのあるコンピューターを確認してください。";
constexpr const char* kNotReady = "ドライブの準備ができていません。ディスクと接続を確認してください。";
constexpr const char* kProtected = "ディスクが書き込み禁止になっています。";
constexpr const char* kLink =
    "ファイルまたはそのフォルダーがリンクになっているため、開けません。リンクではなく実物を置いてください。";

constexpr DWORD kQuotaExceeded = 1295;  // the compiler's header does not have its name

/// `text` replaces the failure's own description if it is set.
struct Meaning {
    DWORD error;
    Failure failure;
    const char* text = nullptr;
};

constexpr auto kMeanings = std::to_array<Meaning>({
    {ERROR_FILE_NOT_FOUND, Failure::FileNotFound},
    {ERROR_PATH_NOT_FOUND, Failure::PathNotFound},
    {ERROR_INVALID_DRIVE, Failure::PathNotFound},
    {ERROR_DIRECTORY, Failure::PathNotFound},
    {ERROR_BAD_NETPATH, Failure::PathNotFound, kNoNetwork},
    {ERROR_BAD_NET_NAME, Failure::PathNotFound, kNoNetwork},
    {ERROR_NETNAME_DELETED, Failure::DeviceIo, kNoNetwork},
    {ERROR_NETWORK_UNREACHABLE, Failure::DeviceIo, kNoNetwork},
    {ERROR_UNEXP_NET_ERR, Failure::DeviceIo, kNoNetwork},
    {ERROR_SEM_TIMEOUT, Failure::DeviceIo, kNoNetwork},
    {ERROR_NOT_READY, Failure::DeviceIo, kNotReady},
    {ERROR_ACCESS_DENIED, Failure::PathFileAccess},
    {ERROR_WRITE_PROTECT, Failure::PermissionDenied, kProtected},
    {ERROR_SHARING_VIOLATION, Failure::PermissionDenied, kInUse},
    {ERROR_LOCK_VIOLATION, Failure::PermissionDenied, kInUse},
    {ERROR_USER_MAPPED_FILE, Failure::PermissionDenied, kInUse},
    {ERROR_DELETE_PENDING, Failure::PermissionDenied, kInUse},
    {ERROR_FILE_EXISTS, Failure::FileExists},
    {ERROR_ALREADY_EXISTS, Failure::FileExists},
    {ERROR_DISK_FULL, Failure::DiskFull},
    {ERROR_HANDLE_DISK_FULL, Failure::DiskFull},
    {kQuotaExceeded, Failure::DiskFull},
    {ERROR_FILE_TOO_LARGE, Failure::DiskFull},
    {ERROR_INVALID_NAME, Failure::BadFileName},
    {ERROR_BAD_PATHNAME, Failure::BadFileName},
    {ERROR_FILENAME_EXCED_RANGE, Failure::BadFileName},
    {ERROR_NOT_ENOUGH_MEMORY, Failure::OutOfMemory},
    {ERROR_OUTOFMEMORY, Failure::OutOfMemory},
});

// Access is denied also while an earlier deletion of the same name is not complete.
constexpr auto kPassing = std::to_array<DWORD>(
    {ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, ERROR_USER_MAPPED_FILE, ERROR_DELETE_PENDING, ERROR_ACCESS_DENIED});
constexpr auto kNothing =
    std::to_array<DWORD>({ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_DRIVE, ERROR_DIRECTORY,
                          ERROR_INVALID_NAME, ERROR_BAD_PATHNAME, ERROR_FILENAME_EXCED_RANGE, ERROR_NOT_READY});

constexpr ULONGLONG kPatience = 2000;  // milliseconds
constexpr DWORD kPause = 20;           // milliseconds

}  // namespace

void raiseError(DWORD error) {
    const auto* const found = std::ranges::find(kMeanings, error, &Meaning::error);
    if (found == kMeanings.end()) {
        throw RunTimeError(Failure::DeviceIo);
    }
    if (found->text != nullptr) {
        throw RunTimeError(found->failure, found->text);
    }
    throw RunTimeError(found->failure);
}

void raiseLastError() { raiseError(::GetLastError()); }

void raiseLink() { throw RunTimeError(Failure::PathFileAccess, kLink); }

bool saysNothingIsThere(DWORD error) { return std::ranges::find(kNothing, error) != kNothing.end(); }

bool retryWhileInUse(const std::function<bool()>& call) {
    const ULONGLONG begin = ::GetTickCount64();
    while (!call()) {
        const DWORD error = ::GetLastError();
        if (std::ranges::find(kPassing, error) == kPassing.end() || ::GetTickCount64() - begin >= kPatience) {
            ::SetLastError(error);
            return false;
        }
        ::Sleep(kPause);
    }
    return true;
}

}  // namespace orv
