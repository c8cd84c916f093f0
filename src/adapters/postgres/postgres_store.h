#pragma once

#include "adapters/postgres/server_link.h"
#include "adapters/store/store_connection.h"

namespace orv {

/// How long the server works for us, besides how long it is waited for.
struct ServerLimits {
    ServerPatience patience;
    /// For a row that another terminal is writing.
    std::chrono::milliseconds lock{5000};
    /// For one statement; below the patience for an answer, so that the server tells the cause.
    std::chrono::milliseconds statement{8000};
    /// For a transaction whose terminal stands still: then the server undoes it, and the others work on.
    std::chrono::milliseconds idle{60000};
};

/// Opens stores on a PostgreSQL server that a text file names (server_text.h).
///
/// - Statements run as they are written, each in a transaction or a savepoint of its own: a read cannot change
/// anything,
///   and a failed one leaves the open transaction as it was.
/// - Transactions are read-committed. No setting outlives one, so that a pooler may hand each to another session.
/// - A wire that is cut ends the transaction: rolled back, except in the middle of a commit, whose failure says that
///   nobody can tell.
StoreOpener postgresStore(const ServerLimits& limits = {});

}  // namespace orv
