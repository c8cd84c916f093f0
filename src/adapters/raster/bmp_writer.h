#pragma once

#include "adapters/raster/raster.h"

namespace orv {

/// Returns the whole file, with the depth of `header`.
std::vector<std::uint8_t> bmpBytes(const Raster& raster, const PictureHeader& header);

}  // namespace orv
