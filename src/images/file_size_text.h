#pragma once

#include <string>

namespace orv {

inline namespace bas_Image {

/// A count of bytes as the operator reads it: "1000B", "1.5KB", "12.5GB". "-1" when that fails.
std::string PF_GetFileSizeString(double size);

}  // namespace bas_Image

}  // namespace orv
