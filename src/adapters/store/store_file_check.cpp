#include "adapters/store/store_file_check.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "adapters/store/file_path.h"
#include "adapters/store/store_failure.h"
#include "platform/ascii.h"
#include "platform/utf8.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

constexpr StoreRefusal kMissing{"DBFILE01", Failure::FileNotFound, "データベースのファイルが見つかりません。"};
constexpr StoreRefusal kFolder{"DBFILE02", Failure::PathFileAccess,
                               "データベースのファイルがあるはずの場所に、フォルダーがあります。"};
constexpr StoreRefusal kNoFile{"DBFILE03", Failure::PathFileAccess,
                               "データベースの場所にあるものは、普通のファイルではありません。"};
constexpr StoreRefusal kUnreadable{"DBFILE04", Failure::PermissionDenied,
                                   "データベースのファイルを読む権限がありません。"};
constexpr StoreRefusal kEmpty{"DBFILE05", Failure::DeviceIo,
                              "データベースのファイルが空です。バックアップから戻してください。"};
constexpr StoreRefusal kJet{
    "DBFILE06", Failure::DeviceIo,
    "データベースのファイルが以前の形式（Jet）です。新しい形式へ移したファイルを置いてください。"};
constexpr StoreRefusal kOtherKind{"DBFILE07", Failure::DeviceIo,
                                  "データベースの場所にあるファイルは、データベースではありません。"};

constexpr std::string_view kSqliteSign{"SQLite format 3\0", 16};
constexpr std::size_t kLookedAt = 4096;
constexpr std::size_t kJetSignAt = 4;
constexpr auto kJetSigns = std::to_array<std::string_view>({"Standard Jet DB", "Standard ACE DB"});
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kKeywordLetters = "abcdefghijklmnopqrstuvwxyz_";

void refuseUnlessFile(const std::string& path) {
    std::error_code error;
    switch (fs::status(filePath(path), error).type()) {
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
    std::ifstream file(filePath(path), std::ios::binary);
    if (!file) {
        refuse(kUnreadable);
    }
    std::string bytes(kLookedAt, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

bool isJet(std::string_view start) {
    return start.size() > kJetSignAt && std::ranges::any_of(kJetSigns, [&](std::string_view sign) {
               return start.substr(kJetSignAt).starts_with(sign);
           });
}

/// True if the first line with content begins with a keyword and an equals sign, or is an address.
bool namesServer(std::string_view start) {
    start = withoutByteOrderMark(start);
    while (true) {
        start = trimmedLeft(start, kBlanks);
        if (!start.starts_with('#')) {
            break;
        }
        start.remove_prefix(std::min(start.find('\n'), start.size()));
    }
    if (start.starts_with("postgresql://") || start.starts_with("postgres://")) {
        return true;
    }
    const std::size_t word = start.find_first_not_of(kKeywordLetters);
    const std::size_t sign = start.find_first_not_of(kBlanks, word);
    return word > 0 && sign != std::string_view::npos && start[sign] == '=';
}

}  // namespace

StoreKind detectStoreKind(const std::string& nativePath) {
    refuseUnlessFile(nativePath);
    const std::string start = firstBytes(nativePath);
    if (start.empty()) {
        refuse(kEmpty);
    }
    if (isJet(start)) {
        refuse(kJet);
    }
    if (start.starts_with(kSqliteSign)) {
        return StoreKind::Embedded;
    }
    if (start.find('\0') != std::string::npos || !namesServer(start)) {
        refuse(kOtherKind);
    }
    return StoreKind::Server;
}

bool isJetFile(const std::string& nativePath) {
    refuseUnlessFile(nativePath);
    return isJet(firstBytes(nativePath));
}

void requireStoreKind(const std::string& nativePath, StoreKind kind) {
    if (detectStoreKind(nativePath) != kind) {
        refuse(kOtherKind);
    }
}

}  // namespace orv
