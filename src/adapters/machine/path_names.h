#pragma once

#include <string_view>
#include <vector>

#include "platform/ascii.h"

namespace orv {

constexpr bool hasDrive(std::string_view path) { return path.size() >= 2 && path[1] == ':' && isAsciiLetter(path[0]); }

/// Returns the place of the last name in a path.
constexpr std::size_t nameBegin(std::string_view path) { return path.find_last_of("\\/") + 1; }

/// Returns the names of a path after "." and ".." are resolved. A ".." at the top is dropped.
std::vector<std::string_view> splitPath(std::string_view path);

}  // namespace orv
