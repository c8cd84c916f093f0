#pragma once

#include <string_view>

#include "adapters/store/store_failure.h"

namespace orv {

/// The failure for one of the server's five-character states, which stands in its code. `detail`, the server's own
/// words, is added where the statement or the settings are to blame.
StoreFailure serverFailure(std::string_view state, std::string_view detail);

/// The failure of an opening, from the client library's words with the server's state in them, where it got so far.
StoreFailure openingFailure(std::string_view words);

}  // namespace orv
