#pragma once

#include "adapters/pictures/open_file.h"
#include "adapters/pictures/raster.h"

namespace orv {

/// The first picture of the file, in its place on the file's ground.
Raster readGif(const OpenFile& file);

/// The whole file; `raster` has colours.
std::vector<std::uint8_t> gifBytes(const Raster& raster);

}  // namespace orv
