#include "adapters/postgres/server_opening.h"

#include <libpq-fe.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <future>
#include <iterator>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "adapters/postgres/postgres_failure.h"
#include "adapters/postgres/postgres_library.h"
#include "adapters/postgres/server_settings.h"
#include "platform/waiting.h"

namespace orv {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kMostWhenOpening = std::size_t{1} << 20U;
constexpr std::size_t kMemoryOfOthers = std::size_t{256} << 20U;  // new threads and windows, meanwhile

constexpr StoreRefusal kNotInTime{"DBCONN03", Failure::TimedOut, "データベースのサーバーが接続に応答しません。"};
constexpr StoreRefusal kNeedsPassword{"DBCONN04", Failure::PermissionDenied,
                                      "データベースのサーバーがパスワードを求めています。"
                                      "利用者ごとのパスワードファイル（.pgpass）に書いてください。"};

// After these failures the next host is tried. Any other answer applies to all hosts.
constexpr auto kTryNext = std::to_array<std::string_view>({"DBCONN02", "DB57P03"});

// The network itself detects an unreachable host, unless the settings say otherwise.
const ServerSettings kNetworkDefaults = {{"fallback_application_name", "company_information"},
                                         {"keepalives_idle", "5"},
                                         {"keepalives_interval", "2"},
                                         {"keepalives_count", "3"},
                                         {"tcp_user_timeout", "10000"}};

/// Nothing has been sent when this returns.
ServerConnection start(ServerSettings settings) {
    settings.insert(kNetworkDefaults.begin(), kNetworkDefaults.end());
    ServerConnection connection = startConnection(settings);
    pq().setErrorVerbosity(connection.get(), PQERRORS_VERBOSE);  // adds the server's state to its text
    return connection;
}

std::vector<std::string> listed(const std::string& text) {
    std::vector<std::string> parts{""};
    for (const char c : text) {
        c == ',' ? static_cast<void>(parts.emplace_back()) : parts.back().push_back(c);
    }
    return parts;
}

/// False if the host was not ready in time. Otherwise it has accepted the connection or reported why not.
bool letIn(PGconn* connection, Clock::time_point deadline) {
    ReceivedBytes received(kMostWhenOpening);
    PostgresPollingStatusType next = PGRES_POLLING_WRITING;
    while (pq().status(connection) != CONNECTION_BAD && next != PGRES_POLLING_OK && next != PGRES_POLLING_FAILED) {
        if (!waitForSocket(connection, next == PGRES_POLLING_READING ? WireState::Readable : WireState::Writable,
                           deadline)) {
            return false;
        }
        received.count(connection, [&] { next = pq().connectPoll(connection); });
        if (received.areTooMany()) {
            refuse(kAnswerTooLong);
        }
    }
    return true;
}

StoreFailure toFailure(const StoreRefusal& refusal) {
    return {refusal.number, std::string(refusal.code), std::string(refusal.text)};
}

/// Tries the hosts one after the other. The library itself would give its first host all the time.
class Opening {
public:
    Opening(ServerSettings settings, std::chrono::milliseconds patience)
        : settings_(std::move(settings)), patience_(patience) {
        allow();
    }

    ServerConnection run() {
        settings_ = settled(settings_);
        const long seconds = std::strtol(findSetting(settings_, "connect_timeout").c_str(), nullptr, 10);
        patience_ = seconds > 0 ? std::chrono::seconds(seconds) : patience_;
        const std::vector<ServerSettings> hosts = eachHost();
        for (std::size_t host = 0; host < hosts.size(); ++host) {
            allow();
            ServerConnection connection = start(secured(hosts[host]));
            const bool isInTime = letIn(connection.get(), deadline_.load());
            if (isInTime && pq().status(connection.get()) == CONNECTION_OK) {
                return connection;
            }
            const StoreFailure failure = whyNot(connection.get(), isInTime);
            const bool mayGoOn = !isInTime || std::ranges::find(kTryNext, failure.code()) != kTryNext.end();
            if (!mayGoOn || host + 1 == hosts.size()) {
                throw failure;
            }
        }
        throw toFailure(kNotInTime);
    }

    /// Returns the time limit of the host that is being tried.
    Clock::time_point deadline() const { return deadline_.load(); }

private:
    void allow() { deadline_.store(Clock::now() + patience_); }

    static StoreFailure whyNot(PGconn* connection, bool isInTime) {
        return !isInTime                                       ? toFailure(kNotInTime)
               : pq().connectionNeedsPassword(connection) != 0 ? toFailure(kNeedsPassword)
                                                               : openingFailure(pq().errorMessage(connection));
    }

    /// Returns the settings for each host separately. If a standby is only preferred, it is searched on all hosts
    /// first.
    std::vector<ServerSettings> eachHost() const {
        const auto names = listed(findSetting(settings_, "host"));
        const auto addresses = listed(findSetting(settings_, "hostaddr"));
        std::vector<ServerSettings> hosts;
        for (std::size_t place = 0; place < std::max(names.size(), addresses.size()); ++place) {
            hosts.push_back(hostAt(place));
        }
        if (findSetting(settings_, "target_session_attrs") == "prefer-standby") {
            std::vector<ServerSettings> anyOf = hosts;
            std::ranges::for_each(hosts, [](ServerSettings& host) { host["target_session_attrs"] = "standby"; });
            std::ranges::for_each(anyOf, [](ServerSettings& host) { host["target_session_attrs"] = "any"; });
            std::ranges::move(anyOf, std::back_inserter(hosts));
        }
        return hosts;
    }

    ServerSettings hostAt(std::size_t place) const {
        ServerSettings host = settings_;
        for (const char* name : {"host", "hostaddr", "port"}) {
            const std::vector<std::string> values = listed(findSetting(settings_, name));
            host[name] = values[std::min(place, values.size() - 1)];  // a single port is for all hosts
        }
        return host;
    }

    ServerSettings settings_;
    std::chrono::milliseconds patience_;
    std::atomic<Clock::time_point> deadline_;
};

}  // namespace

bool waitForSocket(pg_conn* connection, WireState state, std::chrono::steady_clock::time_point deadline) {
    while (true) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0) {
            return false;
        }
        const WireAnswer answer = waitForWire(pq().socket(connection), state, std::min(left, kWaitingPause));
        if (answer != WireAnswer::NotYet) {
            return answer == WireAnswer::Ready;
        }
        whileWaiting();
    }
}

ReceivedBytes::ReceivedBytes(std::size_t most)
    : most_(most), mostMemory_(reservedMemory() + 2 * most + kMemoryOfOthers) {}

bool ReceivedBytes::areTooMany() const { return received_ > most_ || reservedMemory() > mostMemory_; }

void ReceivedBytes::count(pg_conn* connection, const std::function<void()>& read) {
    constexpr std::size_t kAtLeast = 8192;  // bytes that the library reads at a time, if available
    const std::size_t before = bytesWaiting(pq().socket(connection));
    read();
    const std::size_t taken = before - std::min(before, bytesWaiting(pq().socket(connection)));
    received_ += std::max(taken, std::min(before, kAtLeast));
}

ServerConnection openServer(const ServerSettings& settings, std::chrono::milliseconds patience) {
    // A name lookup cannot be interrupted. After the time limit, its thread continues alone and closes any connection
    // that it still opens.
    const auto opening = std::make_shared<Opening>(settings, patience);
    std::packaged_task<ServerConnection()> task([opening] { return opening->run(); });
    std::future<ServerConnection> opened = task.get_future();
    std::thread(std::move(task)).detach();
    constexpr std::chrono::milliseconds kGrace{100};
    while (opened.wait_for(kWaitingPause) != std::future_status::ready) {
        if (Clock::now() > opening->deadline() + kGrace) {
            refuse(kNotInTime);
        }
        whileWaiting();
    }
    return opened.get();
}

}  // namespace orv
