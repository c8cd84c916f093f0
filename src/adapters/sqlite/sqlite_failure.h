#pragma once

#include <string_view>

#include "adapters/store/store_failure.h"

namespace orv {

/// Returns the failure for SQLite's result number, which is a part of the code. Adds `detail`, SQLite's own text, if
/// the statement is wrong.
StoreFailure sqliteFailure(int result, std::string_view detail);

}  // namespace orv
