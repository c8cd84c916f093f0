#include "adapters/postgres/server_settings.h"

#include <libpq-fe.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>
#include <vector>

#include "adapters/postgres/postgres_failure.h"
#include "adapters/postgres/postgres_library.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr StoreRefusal kKeyByEngine{"DBFILE08", Failure::InvalidCall,
                                    "データベースのサーバーへの接続に使う鍵（sslkey）の名前に「:」は使えません。"};

constexpr StoreRefusal kNotTheirPassword{"DBFILE08", Failure::InvalidCall,
                                         "サービスや環境変数のパスワードは、データベースのサーバーを示すファイルが指す"
                                         "相手には渡しません。サーバーの設定もサービスに書いてください。"};

// The value that the library has for both where nobody says anything.
constexpr std::string_view kUnsaid = "prefer";
constexpr const char* kStrictMode = "verify-full";
constexpr auto kOldProtocols = std::to_array<std::string_view>({"", "TLSv1", "TLSv1.1"});
// What decides who gets a password. Not all of it can be checked: a certificate is only as good as `sslrootcert`.
constexpr auto kDestination = std::to_array<std::string_view>({"host", "hostaddr", "port", "sslmode", "sslrootcert"});

// With a value that it does not know, the library collects all settings and ends before it looks for a host.
constexpr const char* kProbe = "ssl_max_protocol_version";
constexpr const char* kProbeValue = "none";

ServerConnection probe(ServerSettings settings) {
    settings[kProbe] = kProbeValue;
    return startConnection(settings);
}

ServerSettings settingsOf(PGconn* connection) {
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

/// "name:key" is a key of the engine `name`, which can be the path of a library; "C:\\key" is a file.
bool isPlainFile(std::string_view key) {
    const std::size_t colon = key.find(':');
    const bool isDrive = colon == 1 && std::isalpha(static_cast<unsigned char>(key[0])) != 0 && key.size() > 2 &&
                         (key[2] == '\\' || key[2] == '/') && key.find(':', 2) == std::string_view::npos;
    return colon == std::string_view::npos || isDrive;
}

bool isLocal(const ServerSettings& host) {
    const std::string name = valueOf(host, "host");
    return valueOf(host, "hostaddr").empty() && (name.empty() || name.front() == '/' || name.front() == '@');
}

/// A password of a service or the environment is for any server, unlike those of `.pgpass`, which name theirs. So is
/// each password that the user lets go without a proof.
bool isForAnyServer(const ServerSettings& settings) {
    return !valueOf(settings, "password").empty() || valueOf(settings, "channel_binding") == "disable";
}

/// `named` is a text that others may have written. It must not choose who gets such a password.
void refuseOtherDestination(const ServerSettings& named, const ServerSettings& all) {
    for (const std::string_view name : kDestination) {
        if (isForAnyServer(all) && !valueOf(named, name).empty()) {
            refuse(kNotTheirPassword, name);
        }
    }
}

}  // namespace

void ConnectionCloser::operator()(pg_conn* connection) const noexcept { pq().finish(connection); }

std::string valueOf(const ServerSettings& settings, std::string_view name) {
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
    ServerSettings all = settingsOf(connection.get());
    if (all.erase(kProbe) == 0) {
        throw openingFailure(pq().errorMessage(connection.get()));  // such as a service that is nowhere
    }
    if (!isPlainFile(valueOf(all, "sslkey"))) {
        refuse(kKeyByEngine);
    }
    refuseOtherDestination(named, all);
    if (valueOf(all, "sslmode") == kUnsaid && !named.contains("sslmode")) {
        all["sslmode"] = kStrictMode;
    }
    if (std::ranges::find(kOldProtocols, valueOf(all, "ssl_min_protocol_version")) != kOldProtocols.end()) {
        all["ssl_min_protocol_version"] = "TLSv1.2";
    }
    return all;
}

ServerSettings secured(ServerSettings host) {
    const bool isUnsaid = valueOf(host, "channel_binding") == kUnsaid;
    if (isUnsaid && !isLocal(host) && *pq().pass(probe(host).get()) != '\0') {
        host["channel_binding"] = "require";
    }
    return host;
}

}  // namespace orv
