#pragma once

#include "adapters/pixels/open_file.h"
#include "adapters/raster/raster.h"

namespace orv {

/// Returns the first picture of the file, at its position on the background.
Raster readGif(const OpenFile& file);

/// Returns the whole file. `raster` must have a colour table.
std::vector<std::uint8_t> gifBytes(const Raster& raster);

}  // namespace orv
