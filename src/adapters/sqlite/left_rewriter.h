#pragma once

#include <string>
#include <string_view>

namespace orv {

/// `sql` with the name of each call `Left(...)` put between double quotes. LEFT is a keyword of the engine's joins, so
/// that it takes a function of this name only when quoted. Literals, quoted names and comments stay as they are.
std::string quoteLeftCalls(std::string_view sql);

}  // namespace orv
