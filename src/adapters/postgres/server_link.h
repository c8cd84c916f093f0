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

/// How long the server is waited for, and how much is taken from it.
struct ServerPatience {
    /// For one host to let us in, where the settings do not say (`connect_timeout`).
    std::chrono::milliseconds connect{5000};
    /// For an answer, whatever the server does or does not do.
    std::chrono::milliseconds answer{10000};
    /// Of one answer.
    std::size_t bytes = std::size_t{64} << 20U;
};

/// The wire to a server: messages with a time limit. Nothing here waits for ever, not even for a server that stands
/// still in the middle of a message.
class ServerLink {
public:
    /// Failure: a StoreFailure that tells what kept the server from letting us in.
    ServerLink(const ServerSettings& settings, const ServerPatience& patience);

    /// Sends one message and waits for its end: one statement with parameters, or several without. The last result, or
    /// the first that failed. Null: the wire is cut, and `whyCut` tells by whom; the server rolls back what was open.
    ServerResult ask(const std::string& sql, const Values& parameters);
    ServerResult askAll(const std::string& sql);

    const StoreRefusal& whyCut() const noexcept { return *whyCut_; }
    /// A transaction is open on the server; false on a cut wire.
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
    ReceivedBytes received_;  // of the answer that is coming
    const StoreRefusal* whyCut_;
};

}  // namespace orv
