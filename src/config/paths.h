#pragma once

#include <string>

namespace orv {

/// Returns `path` with a trailing "\", or "" for an empty path. Checks the last byte in the code page. A folder whose
/// last character ends in that byte therefore gets no separator, which existing installs rely on.
std::string P_AddBackslash(const std::string& path);

}  // namespace orv
