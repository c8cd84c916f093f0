#pragma once

#include <string>

namespace orv {

inline namespace bas_Image {

/// Returns a size in bytes for display: "1000B", "1.5KB", "12.5GB". Returns "-1" on failure.
std::string PF_GetFileSizeString(double size);

}  // namespace bas_Image

}  // namespace orv
