#pragma once

#include <string>
#include <string_view>

namespace orv {

/// Returns `sql` with the name of each call `Left(...)` in double quotes. LEFT is a keyword of the engine's joins, so
/// that it accepts a function of this name only in quotes. Literals, quoted names and comments do not change.
std::string quoteLeftCalls(std::string_view sql);

}  // namespace orv
