#pragma once

#include "adapters/sqlite/sqlite_database.h"

namespace orv {

/// Opens stores that are one SQLite file, shared by the terminals of a small office.
///
/// - A transaction takes the write lock when it begins, so that two terminals never wait for each other in a round; a
///   store that another one holds is waited for, `limits.busy` long, then the call fails.
/// - No statement changes settings of the engine, runs longer or answers more than `limits` allow, or reads other rows
///   while it changes some.
/// - A column declared as a boolean gives booleans, whatever number stands for true in the file.
StoreOpener sqliteStore(const SqliteLimits& limits = {});

}  // namespace orv
