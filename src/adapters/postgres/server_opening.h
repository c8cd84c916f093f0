#pragma once

#include <chrono>

#include "adapters/postgres/server_settings.h"

namespace orv {

/// Waits until something happens to the wire, of the kinds that `poll` knows. False when the time is over.
bool waitForWire(pg_conn* connection, short events, std::chrono::steady_clock::time_point deadline);

/// Opens a connection to the first of the hosts that lets us in and is what `target_session_attrs` asks for. Each host
/// has `patience`, or the `connect_timeout` of the settings, also where looking up its name stands still.
/// Failure: a StoreFailure that tells what kept the last host from letting us in.
ServerConnection openServer(const ServerSettings& settings, std::chrono::milliseconds patience);

}  // namespace orv
