#pragma once

#include "adapters/pixels/open_file.h"
#include "adapters/raster/raster.h"

namespace orv {

/// Returns the whole file, with the depth of `header`.
std::vector<std::uint8_t> bmpBytes(const Raster& raster, const PictureHeader& header);

/// Returns the whole file, in the kind and depth of `header`, with the library's best compression.
std::vector<std::uint8_t> pngBytes(const Raster& raster, const PictureHeader& header);

/// Returns the first picture of the file, at its position on the background.
Raster readGif(const OpenFile& file);

/// Returns the whole file. `raster` must have a colour table.
std::vector<std::uint8_t> gifBytes(const Raster& raster);

PictureHeader tiffHeader(const OpenFile& file);

/// Returns the first picture of the file as stored, not rotated yet. Keeps samples of 16 bits if they are plain grey or
/// RGB in whole rows. Of all others only the upper 8 bits are read, and a deeper picture cannot be written back.
Raster readTiff(const OpenFile& file, const PictureHeader& header);

/// Returns the whole file, compressed without loss. Throws the failure for an unwritable kind if the colours are
/// neither grey nor RGB nor a colour table.
std::vector<std::uint8_t> tiffBytes(const Raster& raster, const PictureHeader& header);

/// Throws the failure for a damaged picture if a BMP file is truncated. The decoder would leave the missing part blank
/// without a message.
void requireWholeBmp(const OpenFile& file);

}  // namespace orv
