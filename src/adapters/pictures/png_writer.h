#pragma once

#include "adapters/pictures/raster.h"

namespace orv {

/// The whole file, in the kind and depth of `header`, packed as tightly as the library can.
std::vector<std::uint8_t> pngBytes(const Raster& raster, const PictureHeader& header);

}  // namespace orv
