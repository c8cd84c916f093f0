#pragma once

#include <chrono>

#include "adapters/store/store_connection.h"

namespace orv {

inline constexpr std::chrono::milliseconds kSqliteBusyWait{5000};

/// Opens stores that are one SQLite file, shared by the terminals of a small office.
///
/// - A transaction takes the write lock when it begins, so that two terminals never wait for each other in a round; a
///   store that another one holds is waited for, `busyWait` long, then the call fails.
/// - No statement changes settings of the engine.
/// - A column declared as a boolean gives booleans, whatever number stands for true in the file.
StoreOpener sqliteStore(std::chrono::milliseconds busyWait = kSqliteBusyWait);

}  // namespace orv
