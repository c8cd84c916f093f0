#pragma once

#include "adapters/postgres/server_link.h"
#include "adapters/store/store_connection.h"

namespace orv {

/// Limits for the server's work. ServerPatience limits how long the program waits for the server.
struct ServerLimits {
    ServerPatience patience;
    /// For a row that another terminal is writing.
    std::chrono::milliseconds lock{5000};
    /// For one statement. Shorter than the time limit for an answer, so that the server can report the cause.
    std::chrono::milliseconds statement{8000};
    /// For a transaction whose terminal does nothing. The server then rolls it back, and the other terminals can
    /// continue.
    std::chrono::milliseconds idle{60000};
};

/// Opens stores on a PostgreSQL server that is named in a text file (server_text.h).
///
/// - Statements run unchanged, each in its own transaction or savepoint. A read cannot change anything, and a failed
/// one
///   leaves the open transaction as it was.
/// - Transactions are read-committed. No setting remains after one, so that a pooler can use another session for each.
/// - A lost connection ends the transaction. It is rolled back, except during a commit, whose message says that the
///   outcome is unknown.
StoreOpener postgresStore(const ServerLimits& limits = {});

}  // namespace orv
