#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "adapters/postgres/server_opening.h"
#include "adapters/store/store_failure.h"
#include "platform/value.h"

struct pg_result;

namespace orv {

struct ResultClearer {
    void operator()(pg_result* result) const noexcept;
};
using ServerResult = std::unique_ptr<pg_result, ResultClearer>;

/// How long the program waits for the server, and how much it accepts.
struct ServerPatience {
    /// For one host to accept the connection, unless the settings say otherwise (`connect_timeout`).
    std::chrono::milliseconds connect{5000};
    /// For an answer, regardless of the server's behaviour.
    std::chrono::milliseconds answer{10000};
    /// Limit of one answer.
    std::size_t bytes = std::size_t{64} << 20U;
};

/// A connection to a server that sends messages with a time limit. No call waits forever, even if the server stops in
/// the middle of a message.
class ServerLink {
public:
    /// Throws a StoreFailure with the reason why the server did not accept the connection.
    ServerLink(const ServerSettings& settings, const ServerPatience& patience);

    /// Sends one message and waits for its end: one statement with parameters, or several without. Returns the last
    /// result, or the first that failed. Null if the connection is lost; `whyCut` has the reason. The server then rolls
    /// back the open transaction.
    ServerResult ask(const std::string& sql, const Values& parameters);
    ServerResult askAll(const std::string& sql);

    const StoreRefusal& whyCut() const noexcept { return *whyCut_; }
    /// True if a transaction is open on the server. False if the connection is lost.
    bool inTransaction() const;

private:
    using Clock = std::chrono::steady_clock;

    ServerResult answer(bool sent);
    bool flushed(Clock::time_point deadline);
    ServerResult nextResult(Clock::time_point deadline);
    bool receiveInput();
    void cut(const StoreRefusal& why);

    ServerConnection connection_;
    ServerPatience patience_;
    ReceivedBytes received_;  // of the current answer
    const StoreRefusal* whyCut_;
};

}  // namespace orv
