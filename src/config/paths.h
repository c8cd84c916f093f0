#pragma once

#include <string>

namespace orv {

/// `path` with a trailing "\", an empty path as it is. The test is on the last byte in the code page: a folder whose
/// last character ends in that byte gets no separator, as everything that stands on the disks expects.
std::string P_AddBackslash(const std::string& path);

}  // namespace orv
