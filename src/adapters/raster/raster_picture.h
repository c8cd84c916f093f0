#pragma once

#include <optional>

#include "adapters/pixels/byte_order.h"
#include "adapters/pixels/open_file.h"
#include "adapters/pixels/picture_header.h"
#include "adapters/raster/raster.h"
#include "platform/machine/file_system.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// The number of bytes that `rasterHeader` needs.
inline constexpr std::size_t kHeaderBytes = 32;

/// Returns the header of a PNG, BMP, GIF or TIFF file, or nothing for other first bytes.
std::optional<PictureHeader> rasterHeader(const OpenFile& file, Bytes first);

/// Returns the first picture, not rotated yet. Decodes at full size, within 512 MB.
Raster readRaster(const OpenFile& file, const PictureHeader& header);

/// Loads PNG, BMP, GIF and TIFF.
std::unique_ptr<Picture> loadRaster(FileSystem& files, const OpenFile& file, const PictureHeader& header,
                                    PictureSize within);

}  // namespace orv
