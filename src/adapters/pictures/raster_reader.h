#pragma once

#include <optional>

#include "adapters/pictures/byte_order.h"
#include "adapters/pictures/open_file.h"
#include "adapters/pictures/raster.h"

namespace orv {

/// How many bytes `rasterHeader` needs.
inline constexpr std::size_t kHeaderBytes = 32;

/// What a PNG, BMP, GIF or TIFF file claims; nothing when its first bytes are none of theirs.
std::optional<PictureHeader> rasterHeader(const OpenFile& file, Bytes first);

/// The picture (the first, when the file holds several), not turned yet. It is decoded at its full size, within 512 MB.
Raster readRaster(const OpenFile& file, const PictureHeader& header);

}  // namespace orv
