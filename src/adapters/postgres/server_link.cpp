#include "adapters/postgres/server_link.h"

#include <libpq-fe.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "adapters/postgres/postgres_library.h"

namespace orv {
namespace {

constexpr StoreRefusal kEncoding{"DBCONN05", Failure::InvalidCall,
                                 "サーバーのデータベースの文字コードがUTF8ではありません。"};
constexpr StoreRefusal kCut{"DBCONN06", Failure::ConnectionFailed,
                            "データベースのサーバーとの接続が切れました。書き込み中の内容は取り消されます。"};
constexpr StoreRefusal kSilent{"DBCONN07", Failure::TimedOut,
                               "データベースのサーバーから応答がありません。書き込み中の内容は取り消されます。"};

struct ToText {
    std::optional<std::string> operator()(Null) const { return std::nullopt; }
    std::optional<std::string> operator()(const Values&) const { throw RunTimeError(Failure::InvalidCall); }
    std::optional<std::string> operator()(const DateTime&) const { throw RunTimeError(Failure::InvalidCall); }
    template <typename Plain>
    std::optional<std::string> operator()(const Plain& value) const {
        return toText(Value(value));
    }
};

bool failed(const PGresult* result) {
    const ExecStatusType status = pq().resultStatus(result);
    return status == PGRES_FATAL_ERROR || status == PGRES_BAD_RESPONSE;
}

void sayNothing(void*, const char*) {}

}  // namespace

void ResultClearer::operator()(pg_result* result) const noexcept { pq().clear(result); }

ServerLink::ServerLink(const ServerSettings& settings, const ServerPatience& patience)
    : connection_(openServer(settings, patience.connect)),
      patience_(patience),
      received_(patience.bytes),
      whyCut_(&kCut) {
    PGconn* connection = connection_.get();
    pq().setnonblocking(connection, 1);
    pq().setNoticeProcessor(connection, sayNothing, nullptr);
    const char* encoding = pq().parameterStatus(connection, "server_encoding");
    if (encoding != nullptr && std::string_view(encoding) != "UTF8") {
        refuse(kEncoding, encoding);
    }
}

ServerResult ServerLink::ask(const std::string& sql, const Values& parameters) {
    std::vector<std::optional<std::string>> texts;
    std::vector<const char*> values;
    for (const Value& parameter : parameters) {
        texts.push_back(std::visit(ToText(), parameter.content()));
    }
    for (const std::optional<std::string>& text : texts) {
        values.push_back(text ? text->c_str() : nullptr);
    }
    return answer(connection_ != nullptr &&
                  pq().sendQueryParams(connection_.get(), sql.c_str(), static_cast<int>(values.size()), nullptr,
                                       values.data(), nullptr, nullptr, 0) != 0);
}

ServerResult ServerLink::askAll(const std::string& sql) {
    return answer(connection_ != nullptr && pq().sendQuery(connection_.get(), sql.c_str()) != 0);
}

bool ServerLink::inTransaction() const {
    const PGTransactionStatusType status = pq().transactionStatus(connection_.get());
    return status == PQTRANS_INTRANS || status == PQTRANS_INERROR;
}

ServerResult ServerLink::answer(bool sent) {
    const auto deadline = Clock::now() + patience_.answer;
    received_ = ReceivedBytes(patience_.bytes);
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
    if (pq().status(connection_.get()) != CONNECTION_OK) {
        // A failure with the server's state has more information than the lost connection after it.
        const bool isReported = kept != nullptr && pq().resultErrorField(kept.get(), PG_DIAG_SQLSTATE) != nullptr;
        cut(kCut);
        return isReported ? std::move(kept) : nullptr;
    }
    return kept;
}

bool ServerLink::flushed(Clock::time_point deadline) {
    PGconn* connection = connection_.get();
    int left = pq().flush(connection);
    while (left == 1) {
        if (!waitForSocket(connection, WireState::Either, deadline)) {
            cut(kSilent);
            return false;
        }
        left = pq().consumeInput(connection) == 1 ? pq().flush(connection) : -1;
    }
    return left == 0;
}

/// Returns the next result of the answer. Null after the last one, and if the connection is lost.
ServerResult ServerLink::nextResult(Clock::time_point deadline) {
    while (connection_ != nullptr && pq().isBusy(connection_.get()) != 0) {
        if (received_.areTooMany()) {
            cut(kAnswerTooLong);
        } else if (!waitForSocket(connection_.get(), WireState::Readable, deadline)) {
            cut(kSilent);
        } else if (!receiveInput()) {
            break;
        }
    }
    return ServerResult(connection_ == nullptr ? nullptr : pq().getResult(connection_.get()));
}

/// False if the connection is lost.
bool ServerLink::receiveInput() {
    bool isOpen = false;
    received_.count(connection_.get(), [&] { isOpen = pq().consumeInput(connection_.get()) != 0; });
    if (received_.areTooMany()) {
        cut(kAnswerTooLong);
    }
    return isOpen;
}

void ServerLink::cut(const StoreRefusal& why) {
    if (connection_ != nullptr) {
        whyCut_ = &why;
    }
    connection_.reset();
}

}  // namespace orv
