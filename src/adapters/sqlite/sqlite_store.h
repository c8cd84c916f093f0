#pragma once

#include "adapters/sqlite/sqlite_database.h"

namespace orv {

/// Opens stores that are one SQLite file, shared by the terminals of a small office.
///
/// - A transaction takes the write lock when it begins, so that two terminals cannot deadlock. If another one has
/// locked
///   the store, the call waits up to `limits.busy` and then fails.
/// - No statement changes settings of the engine, exceeds `limits`, or reads other rows while it changes some.
/// - A column declared as a boolean returns booleans, whatever number means true in the file.
StoreOpener sqliteStore(const SqliteLimits& limits = {});

}  // namespace orv
