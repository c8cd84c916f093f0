#include "adapters/postgres/server_settings.h"

#include <libpq-fe.h>
#include <algorithm>
#include <array>
#include <fstream>
#include <memory>
#include <string_view>
#include <vector>

#include "adapters/postgres/postgres_failure.h"
#include "adapters/postgres/postgres_library.h"
#include "adapters/store/file_path.h"
#include "adapters/store/store_failure.h"
#include "adapters/store/store_file_check.h"
#include "platform/ascii.h"
#include "platform/run_time_error.h"
#include "platform/utf8.h"

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

// The text is a file of the office that others may have written. The client library obeys it with the permissions of
// the user who opens the store. Among others, these are excluded: `options` (settings of the server's session),
// `sslcrldir` and `gsslib`. So are settings of newer libraries, such as one that writes a connection's keys to a file.
constexpr auto kAllowed = std::to_array<std::string_view>({
    // The server's location. `service` names a section of the user's own file or the machine's.
    "host",
    "hostaddr",
    "port",
    "dbname",
    "user",
    "service",
    "target_session_attrs",
    // Names of files that are read. In a password file only lines that begin with this very server are used; the others
    // must be PEM.
    "passfile",
    "sslrootcert",
    "sslcert",
    "sslkey",  // only a file, see isPlainFile
    // A mode below verify-full is the office's own decision. The default is verify-full.
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

using OptionsPtr = std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)>;

std::string connectionText(const std::string& nativePath) {
    std::ifstream file(filePath(nativePath), std::ios::binary);
    std::string text;
    for (std::string line; std::getline(file, line);) {
        const std::string_view setting = trimmed(text.empty() ? withoutByteOrderMark(line) : line, kLineBlanks);
        if (!setting.empty() && !setting.starts_with('#')) {
            text.append(setting) += ' ';
        }
        if (text.size() > kLongest) {
            refuse(kFaulty);
        }
    }
    if (!text.empty()) {
        text.pop_back();  // a blank after an address would be a part of it
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

constexpr StoreRefusal kKeyByEngine{"DBFILE08", Failure::InvalidCall,
                                    "データベースのサーバーへの接続に使う鍵（sslkey）の名前に「:」は使えません。"};

constexpr StoreRefusal kNotTheirPassword{"DBFILE08", Failure::InvalidCall,
                                         "サービスや環境変数のパスワードは、データベースのサーバーを示すファイルが指す"
                                         "相手には渡しません。サーバーの設定もサービスに書いてください。"};

// The library's own default for both settings.
constexpr std::string_view kUnsaid = "prefer";
constexpr const char* kStrictMode = "verify-full";
constexpr auto kOldProtocols = std::to_array<std::string_view>({"", "TLSv1", "TLSv1.1"});
// Settings that decide which server gets a password. Not all of it can be checked: a certificate is only as good as
// `sslrootcert`.
constexpr auto kDestination = std::to_array<std::string_view>({"host", "hostaddr", "port", "sslmode", "sslrootcert"});

// With an unknown value for this setting, the library collects all settings and stops before it looks up a host.
constexpr const char* kProbe = "ssl_max_protocol_version";
constexpr const char* kProbeValue = "none";

ServerConnection probe(ServerSettings settings) {
    settings[kProbe] = kProbeValue;
    return startConnection(settings);
}

ServerSettings readSettings(PGconn* connection) {
    const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(pq().conninfo(connection),
                                                                               pq().conninfoFree);
    ServerSettings all;
    for (const PQconninfoOption* option = options.get(); option != nullptr && option->keyword != nullptr; ++option) {
        if (option->val != nullptr && *option->val != '\0') {
            all[option->keyword] = option->val;
        }
    }
    return all;
}

/// "name:key" is a key of the engine `name`, which can be the path of a library. "C:\\key" is a file.
bool isPlainFile(std::string_view key) {
    const std::size_t colon = key.find(':');
    const bool isDrive = colon == 1 && isAsciiLetter(key[0]) && key.size() > 2 && (key[2] == '\\' || key[2] == '/') &&
                         key.find(':', 2) == std::string_view::npos;
    return colon == std::string_view::npos || isDrive;
}

bool isLocal(const ServerSettings& host) {
    const std::string name = findSetting(host, "host");
    return findSetting(host, "hostaddr").empty() && (name.empty() || name.front() == '/' || name.front() == '@');
}

/// A password of a service or the environment is for any server. Those of `.pgpass` name their server. A password that
/// the user allows to be sent without a proof also counts as one for any server.
bool isForAnyServer(const ServerSettings& settings) {
    return !findSetting(settings, "password").empty() || findSetting(settings, "channel_binding") == "disable";
}

/// `named` is a text that others may have written. It must not choose the server that gets such a password.
void refuseOtherDestination(const ServerSettings& named, const ServerSettings& all) {
    for (const std::string_view name : kDestination) {
        if (isForAnyServer(all) && !findSetting(named, name).empty()) {
            refuse(kNotTheirPassword, name);
        }
    }
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
        // The library marks settings that must not be displayed in this way.
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

void ConnectionCloser::operator()(pg_conn* connection) const noexcept { pq().finish(connection); }

std::string findSetting(const ServerSettings& settings, std::string_view name) {
    const auto found = settings.find(name);
    return found == settings.end() ? std::string() : found->second;
}

ServerConnection startConnection(const ServerSettings& settings) {
    std::vector<const char*> names{"client_encoding"};
    std::vector<const char*> values{"UTF8"};
    for (const auto& [name, value] : settings) {
        if (name != names.front()) {
            names.push_back(name.c_str());
            values.push_back(value.c_str());
        }
    }
    names.push_back(nullptr);
    values.push_back(nullptr);
    ServerConnection connection(pq().connectStartParams(names.data(), values.data(), 0));
    if (connection == nullptr) {
        throw RunTimeError(Failure::OutOfMemory);
    }
    return connection;
}

ServerSettings settled(const ServerSettings& named) {
    const ServerConnection connection = probe(named);
    ServerSettings all = readSettings(connection.get());
    if (all.erase(kProbe) == 0) {
        throw openingFailure(pq().errorMessage(connection.get()));  // such as an unknown service
    }
    if (!isPlainFile(findSetting(all, "sslkey"))) {
        refuse(kKeyByEngine);
    }
    refuseOtherDestination(named, all);
    if (findSetting(all, "sslmode") == kUnsaid && !named.contains("sslmode")) {
        all["sslmode"] = kStrictMode;
    }
    if (std::ranges::find(kOldProtocols, findSetting(all, "ssl_min_protocol_version")) != kOldProtocols.end()) {
        all["ssl_min_protocol_version"] = "TLSv1.2";
    }
    return all;
}

ServerSettings secured(ServerSettings host) {
    const bool isUnsaid = findSetting(host, "channel_binding") == kUnsaid;
    if (isUnsaid && !isLocal(host) && *pq().pass(probe(host).get()) != '\0') {
        host["channel_binding"] = "require";
    }
    return host;
}

}  // namespace orv
