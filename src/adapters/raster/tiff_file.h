#pragma once

#include "adapters/pixels/open_file.h"
#include "adapters/raster/raster.h"

namespace orv {

PictureHeader tiffHeader(const OpenFile& file);

/// Returns the first picture of the file as stored, not rotated yet. Keeps samples of 16 bits if they are plain grey or
/// RGB in whole rows. Of all others only the upper 8 bits are read, and a deeper picture cannot be written back.
Raster readTiff(const OpenFile& file, const PictureHeader& header);

/// Returns the whole file, compressed without loss. Throws the failure for an unwritable kind if the colours are
/// neither grey nor RGB nor a colour table.
std::vector<std::uint8_t> tiffBytes(const Raster& raster, const PictureHeader& header);

}  // namespace orv
