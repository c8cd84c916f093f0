#pragma once

#include <string_view>

#include "adapters/store/store_failure.h"

namespace orv {

/// Returns the failure for a state of the server, which has five characters and becomes part of the code. Adds
/// `detail`, the server's own text, if the statement or the settings are wrong.
StoreFailure serverFailure(std::string_view state, std::string_view detail);

/// Returns the failure of an attempt to connect. `words` is the client library's text, with the server's state if the
/// server answered.
StoreFailure openingFailure(std::string_view words);

}  // namespace orv
