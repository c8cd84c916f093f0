#include "adapters/sqlite/store_file_check.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "adapters/sqlite/sqlite_failure.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

struct Cause {
    std::string_view code;
    Failure number;
    std::string_view text;
};

constexpr Cause kMissing{"DBFILE01", Failure::FileNotFound, "データベースのファイルが見つかりません。"};
constexpr Cause kFolder{"DBFILE02", Failure::PathFileAccess,
                        "データベースのファイルがあるはずの場所に、フォルダーがあります。"};
constexpr Cause kNoFile{"DBFILE03", Failure::PathFileAccess,
                        "データベースの場所にあるものは、普通のファイルではありません。"};
constexpr Cause kUnreadable{"DBFILE04", Failure::PermissionDenied, "データベースのファイルを読む権限がありません。"};
constexpr Cause kEmpty{"DBFILE05", Failure::DeviceIo,
                       "データベースのファイルが空です。バックアップから戻してください。"};
constexpr Cause kJet{"DBFILE06", Failure::DeviceIo,
                     "データベースのファイルが以前の形式（Jet）です。新しい形式へ移したファイルを置いてください。"};
constexpr Cause kOtherKind{"DBFILE07", Failure::DeviceIo,
                           "データベースの場所にあるファイルは、データベースではありません。"};

constexpr std::string_view kOwnSign{"SQLite format 3\0", 16};
constexpr std::size_t kJetSignAt = 4;
constexpr auto kJetSigns = std::to_array<std::string_view>({"Standard Jet DB", "Standard ACE DB"});

[[noreturn]] void refuse(const Cause& cause) {
    throw StoreFailure(cause.number, std::string(cause.code), std::string(cause.text));
}

void refuseUnlessFile(const std::string& path) {
    std::error_code error;
    switch (fs::status(path, error).type()) {
        case fs::file_type::regular:
            return;
        case fs::file_type::not_found:
            refuse(kMissing);
        case fs::file_type::directory:
            refuse(kFolder);
        case fs::file_type::none:
            refuse(error == std::errc::permission_denied ? kUnreadable : kMissing);
        default:
            refuse(kNoFile);
    }
}

std::string firstBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        refuse(kUnreadable);
    }
    std::string bytes(kJetSignAt + kOwnSign.size(), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

}  // namespace

void checkStoreFile(const std::string& nativePath) {
    refuseUnlessFile(nativePath);
    const std::string start = firstBytes(nativePath);
    if (start.empty()) {
        refuse(kEmpty);
    }
    if (start.size() > kJetSignAt && std::ranges::any_of(kJetSigns, [&](std::string_view sign) {
            return std::string_view(start).substr(kJetSignAt).starts_with(sign);
        })) {
        refuse(kJet);
    }
    if (!start.starts_with(kOwnSign)) {
        refuse(kOtherKind);
    }
}

}  // namespace orv
