#pragma once

#include <string_view>

#include "adapters/store/store_failure.h"

namespace orv {

/// The failure for SQLite's result number, which stands in its code. `detail`, SQLite's own words, is added where the
/// statement is to blame.
StoreFailure sqliteFailure(int result, std::string_view detail);

}  // namespace orv
