#include "adapters/postgres/server_text.h"

#include <libpq-fe.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <memory>
#include <string_view>

#include "adapters/postgres/postgres_library.h"
#include "adapters/store/store_failure.h"
#include "adapters/store/store_file_check.h"
#include "platform/file_path.h"

namespace orv {
namespace {

constexpr StoreRefusal kFaulty{"DBFILE08", Failure::InvalidCall,
                               "データベースのサーバーを示すファイルの書き方が正しくありません。"};
constexpr StoreRefusal kPassword{"DBFILE09", Failure::InvalidCall,
                                 "データベースのサーバーを示すファイルにパスワードは書けません。"
                                 "利用者ごとのパスワードファイル（.pgpass）に書いてください。"};
constexpr StoreRefusal kForbidden{"DBFILE08", Failure::InvalidCall,
                                  "データベースのサーバーを示すファイルに、使えない設定が書かれています。"};
constexpr std::size_t kLongest = 4096;

// The text is a file of the office, which others may have written, and the client library does what it says with the
// permissions of the user who opens the store. Not here, among others: `options` (settings of the server's session),
// `sslcrldir`, `gsslib`, and what a newer library may learn, such as writing down the keys of a connection.
constexpr auto kAllowed = std::to_array<std::string_view>({
    // Where the server is. `service` names a section of the user's own file or the machine's.
    "host",
    "hostaddr",
    "port",
    "dbname",
    "user",
    "service",
    "target_session_attrs",
    // Names of files that are read: as passwords only by lines that begin with this very server, as PEM otherwise.
    "passfile",
    "sslrootcert",
    "sslcert",
    "sslkey",  // no library by the name of a key: server_settings.cpp
    // A mode below verify-full is the office's own decision; where it says nothing, it is verify-full.
    "sslmode",
    // Numbers, and a name for the server's list of sessions.
    "connect_timeout",
    "keepalives",
    "keepalives_idle",
    "keepalives_interval",
    "keepalives_count",
    "tcp_user_timeout",
    "application_name",
});
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

using OptionsPtr = std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)>;

std::string connectionText(const std::string& nativePath) {
    std::ifstream file(filePath(nativePath), std::ios::binary);
    std::string text;
    for (std::string line; std::getline(file, line);) {
        if (text.empty() && line.starts_with(kByteOrderMark)) {
            line.erase(0, kByteOrderMark.size());
        }
        const std::size_t first = line.find_first_not_of(" \t\r");
        if (first != std::string::npos && line[first] != '#') {
            text += line.substr(first, line.find_last_not_of(" \t\r") + 1 - first) + " ";
        }
        if (text.size() > kLongest) {
            refuse(kFaulty);
        }
    }
    if (!text.empty()) {
        text.pop_back();  // behind an address a blank would count
    }
    return text;
}

OptionsPtr parsed(const std::string& text) {
    char* words = nullptr;
    OptionsPtr options(pq().conninfoParse(text.c_str(), &words), pq().conninfoFree);
    const std::unique_ptr<char, decltype(&PQfreemem)> kept(words, pq().freemem);
    if (options == nullptr) {
        refuse(kFaulty, words == nullptr ? "" : words);
    }
    return options;
}

}  // namespace

ServerSettings readServerText(const std::string& nativePath) {
    requireStoreKind(nativePath, StoreKind::Server);
    const OptionsPtr options = parsed(connectionText(nativePath));
    ServerSettings settings;
    for (const PQconninfoOption* option = options.get(); option->keyword != nullptr; ++option) {
        if (option->val == nullptr) {
            continue;
        }
        // The library marks so what must not be shown on a screen.
        if (*option->dispchar == '*') {
            refuse(kPassword);
        }
        if (std::ranges::find(kAllowed, option->keyword) == kAllowed.end()) {
            refuse(kForbidden, option->keyword);
        }
        settings[option->keyword] = option->val;
    }
    return settings;
}

}  // namespace orv
