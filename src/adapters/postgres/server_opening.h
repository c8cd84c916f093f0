#pragma once

#include <chrono>
#include <cstddef>
#include <functional>

#include "adapters/postgres/server_settings.h"

namespace orv {

/// Waits until something happens to the wire, of the kinds that `poll` knows. False when the time is over.
bool waitForSocket(pg_conn* connection, short events, std::chrono::steady_clock::time_point deadline);

/// Counts the bytes that the client library takes from a connection. The library keeps an answer whole, however long it
/// becomes, and does not report how much it has taken.
class ReceivedBytes {
public:
    explicit ReceivedBytes(std::size_t most) : most_(most) {}

    /// Counts those that `read` takes.
    void count(pg_conn* connection, const std::function<void()>& read);
    bool areTooMany() const { return received_ > most_; }

private:
    std::size_t most_;
    std::size_t received_ = 0;
};

/// Opens a connection to the first of the hosts that lets us in and is what `target_session_attrs` asks for. Each host
/// has `patience`, or the `connect_timeout` of the settings, also where looking up its name stands still.
/// Failure: a StoreFailure that tells what kept the last host from letting us in. A host that sends more than 1 MB
/// before it lets us in is refused.
ServerConnection openServer(const ServerSettings& settings, std::chrono::milliseconds patience);

}  // namespace orv
