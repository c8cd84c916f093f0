#pragma once

#include <string>
#include <vector>

#include "adapters/store/store_connection.h"

namespace orv {

/// A store in memory, for tests on machines without a database library. Each store has a file that contains a name of
/// its tables. A copy of the file is a copy of the store.
StoreOpener memoryStore();

/// Runs statements on the store of that file, without the adapter. Creates a missing store.
void runInMemory(const std::string& path, const std::string& sql);
/// Returns the rows of a select, columns joined with "|".
std::vector<std::string> rowsInMemory(const std::string& path, const std::string& select);

}  // namespace orv
