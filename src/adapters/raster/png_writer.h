#pragma once

#include "adapters/raster/raster.h"

namespace orv {

/// Returns the whole file, in the kind and depth of `header`, with the library's best compression.
std::vector<std::uint8_t> pngBytes(const Raster& raster, const PictureHeader& header);

}  // namespace orv
