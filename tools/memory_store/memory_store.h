#pragma once

#include <string>
#include <vector>

#include "adapters/store/store_connection.h"

namespace orv {

/// A store in memory, for tests on machines that have no database library. Each store has a file, which holds a name of
/// its tables; a copy of the file is a copy of the store.
StoreOpener memoryStore();

/// Runs statements on the store of that file, past the adapter, and makes the store if there is none.
void runInMemory(const std::string& path, const std::string& sql);
/// The rows of a select, columns joined with "|".
std::vector<std::string> rowsInMemory(const std::string& path, const std::string& select);

}  // namespace orv
