#include "adapters/postgres/server_link.h"

#include <libpq-fe.h>
#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <vector>

#include "adapters/postgres/postgres_failure.h"

namespace orv {
namespace {

constexpr Refusal kNotInTime{"DBCONN03", Failure::TimedOut, "データベースのサーバーが接続に応答しません。"};
constexpr Refusal kNeedsPassword{"DBCONN04", Failure::PermissionDenied,
                                 "データベースのサーバーがパスワードを求めています。"
                                 "利用者ごとのパスワードファイル（.pgpass）に書いてください。"};
constexpr Refusal kEncoding{"DBCONN05", Failure::InvalidCall,
                            "サーバーのデータベースの文字コードがUTF8ではありません。"};
constexpr Refusal kCut{"DBCONN06", Failure::ConnectionFailed,
                       "データベースのサーバーとの接続が切れました。書き込み中の内容は取り消されます。"};
constexpr Refusal kSilent{"DBCONN07", Failure::TimedOut,
                          "データベースのサーバーから応答がありません。書き込み中の内容は取り消されます。"};

// A host that is gone is noticed by the network itself, where the settings do not say otherwise.
const ServerSettings kNetworkDefaults = {{"fallback_application_name", "company_information"},
                                         {"keepalives_idle", "5"},
                                         {"keepalives_interval", "2"},
                                         {"keepalives_count", "3"},
                                         {"tcp_user_timeout", "10000"}};

/// One setting as it stands after services and the environment have been asked; empty where none is made.
std::string settledOn(PGconn* connection, std::string_view name) {
    const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(PQconninfo(connection), PQconninfoFree);
    for (const PQconninfoOption* option = options.get(); option != nullptr && option->keyword != nullptr; ++option) {
        if (option->keyword == name && option->val != nullptr) {
            return option->val;
        }
    }
    return {};
}

/// The time for all hosts of a list together.
std::chrono::milliseconds openingTime(PGconn* connection, std::chrono::milliseconds usual) {
    const std::string hosts = settledOn(connection, "host");
    const long seconds = std::strtol(settledOn(connection, "connect_timeout").c_str(), nullptr, 10);
    return (seconds > 0 ? std::chrono::seconds(seconds) : usual) * (1 + std::ranges::count(hosts, ','));
}

struct TextOf {
    std::optional<std::string> operator()(Null) const { return std::nullopt; }
    std::optional<std::string> operator()(const Values&) const { throw RunTimeError(Failure::InvalidCall); }
    std::optional<std::string> operator()(const DateTime&) const { throw RunTimeError(Failure::InvalidCall); }
    template <typename Plain>
    std::optional<std::string> operator()(const Plain& value) const {
        return toText(Value(value));
    }
};

bool failed(const PGresult* result) {
    const ExecStatusType status = PQresultStatus(result);
    return status == PGRES_FATAL_ERROR || status == PGRES_BAD_RESPONSE;
}

void sayNothing(void*, const char*) {}

}  // namespace

void ResultClearer::operator()(pg_result* result) const noexcept { PQclear(result); }

void ServerLink::Closer::operator()(pg_conn* connection) const noexcept { PQfinish(connection); }

ServerLink::ServerLink(const ServerSettings& settings, const ServerPatience& patience)
    : patience_(patience), whyCut_(&kCut) {
    start(settings);
    PGconn* connection = connection_.get();
    letIn(Clock::now() + openingTime(connection, patience.connect));
    PQsetNoticeProcessor(connection, sayNothing, nullptr);
    const char* encoding = PQparameterStatus(connection, "server_encoding");
    if (encoding != nullptr && std::string_view(encoding) != "UTF8") {
        refuse(kEncoding, encoding);
    }
}

void ServerLink::start(const ServerSettings& settings) {
    ServerSettings all = settings;
    all.insert(kNetworkDefaults.begin(), kNetworkDefaults.end());
    all["client_encoding"] = "UTF8";
    std::vector<const char*> names;
    std::vector<const char*> values;
    for (const auto& [name, value] : all) {
        names.push_back(name.c_str());
        values.push_back(value.c_str());
    }
    names.push_back(nullptr);
    values.push_back(nullptr);
    connection_.reset(PQconnectStartParams(names.data(), values.data(), 0));
    if (connection_ == nullptr) {
        throw RunTimeError(Failure::OutOfMemory);
    }
    PQsetErrorVerbosity(connection_.get(), PQERRORS_VERBOSE);  // the server's state is in its words then
}

void ServerLink::letIn(Clock::time_point deadline) {
    PGconn* connection = connection_.get();
    PostgresPollingStatusType next = PGRES_POLLING_WRITING;
    while (PQstatus(connection) != CONNECTION_BAD && next != PGRES_POLLING_OK && next != PGRES_POLLING_FAILED) {
        if (!wait(next == PGRES_POLLING_READING ? POLLIN : POLLOUT, deadline)) {
            refuse(kNotInTime);
        }
        next = PQconnectPoll(connection);
    }
    if (PQstatus(connection) == CONNECTION_OK) {
        PQsetnonblocking(connection, 1);
    } else if (PQconnectionNeedsPassword(connection) != 0) {
        refuse(kNeedsPassword);
    } else {
        throw openingFailure(PQerrorMessage(connection));
    }
}

ServerResult ServerLink::ask(const std::string& sql, const Values& parameters) {
    std::vector<std::optional<std::string>> texts;
    std::vector<const char*> values;
    for (const Value& parameter : parameters) {
        texts.push_back(std::visit(TextOf(), parameter.content()));
    }
    for (const std::optional<std::string>& text : texts) {
        values.push_back(text ? text->c_str() : nullptr);
    }
    return answer(connection_ != nullptr &&
                  PQsendQueryParams(connection_.get(), sql.c_str(), static_cast<int>(values.size()), nullptr,
                                    values.data(), nullptr, nullptr, 0) != 0);
}

ServerResult ServerLink::askAll(const std::string& sql) {
    return answer(connection_ != nullptr && PQsendQuery(connection_.get(), sql.c_str()) != 0);
}

bool ServerLink::inTransaction() const {
    const PGTransactionStatusType status = PQtransactionStatus(connection_.get());
    return status == PQTRANS_INTRANS || status == PQTRANS_INERROR;
}

ServerResult ServerLink::answer(bool sent) {
    const auto deadline = Clock::now() + patience_.answer;
    if (!sent || !flushed(deadline)) {
        cut(kCut);
        return nullptr;
    }
    ServerResult kept;
    for (ServerResult result = nextResult(deadline); result != nullptr; result = nextResult(deadline)) {
        if (kept == nullptr || !failed(kept.get())) {
            kept = std::move(result);
        }
    }
    if (PQstatus(connection_.get()) != CONNECTION_OK) {
        // A failure with the server's state in it says more than the cut that follows it.
        const bool isTold = kept != nullptr && PQresultErrorField(kept.get(), PG_DIAG_SQLSTATE) != nullptr;
        cut(kCut);
        return isTold ? std::move(kept) : nullptr;
    }
    return kept;
}

bool ServerLink::flushed(Clock::time_point deadline) {
    PGconn* connection = connection_.get();
    int left = PQflush(connection);
    while (left == 1) {
        if (!wait(POLLIN | POLLOUT, deadline)) {
            cut(kSilent);
            return false;
        }
        left = PQconsumeInput(connection) == 1 ? PQflush(connection) : -1;
    }
    return left == 0;
}

/// The next result of the answer; null behind the last one, and where the wire was cut.
ServerResult ServerLink::nextResult(Clock::time_point deadline) {
    while (connection_ != nullptr && PQisBusy(connection_.get()) != 0) {
        if (!wait(POLLIN, deadline)) {
            cut(kSilent);
        } else if (PQconsumeInput(connection_.get()) == 0) {
            break;
        }
    }
    return ServerResult(connection_ == nullptr ? nullptr : PQgetResult(connection_.get()));
}

/// False when the time is over.
bool ServerLink::wait(short events, Clock::time_point deadline) {
    while (true) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        pollfd wire{PQsocket(connection_.get()), events, 0};
        const int ready = left.count() <= 0 ? 0 : ::poll(&wire, 1, static_cast<int>(left.count()));
        if (ready >= 0 || errno != EINTR) {
            return ready > 0;
        }
    }
}

void ServerLink::cut(const Refusal& why) {
    if (connection_ != nullptr) {
        whyCut_ = &why;
    }
    connection_.reset();
}

}  // namespace orv
