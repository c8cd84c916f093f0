#pragma once

#include <chrono>
#include <cstddef>
#include <functional>

#include "adapters/postgres/server_settings.h"
#include "adapters/postgres/wire.h"

namespace orv {

/// Waits for a state of the connection. False if the time is over.
bool waitForSocket(pg_conn* connection, WireState state, std::chrono::steady_clock::time_point deadline);

/// Counts the bytes that the client library reads from a connection. The library stores a whole answer, however long,
/// and does not report how much it has read. As soon as it knows the length of a message, it reserves memory for all of
/// it. One call then reads as much as a fast server sends. So the memory is limited too.
class ReceivedBytes {
public:
    explicit ReceivedBytes(std::size_t most);

    /// Counts the bytes that `read` reads.
    void count(pg_conn* connection, const std::function<void()>& read);
    /// True if more has come, or if memory is reserved for several times as much.
    bool areTooMany() const;

private:
    std::size_t most_;
    std::size_t mostMemory_;  // of this process
    std::size_t received_ = 0;
};

/// Connects to the first host that accepts the connection and is of the kind required by `target_session_attrs`. The
/// time limit of each host is `patience`, or `connect_timeout` of the settings. It includes the lookup of its name.
/// Throws a StoreFailure with the reason why the last host did not accept the connection. A host that sends more than 1
/// MB before that is rejected.
ServerConnection openServer(const ServerSettings& settings, std::chrono::milliseconds patience);

}  // namespace orv
