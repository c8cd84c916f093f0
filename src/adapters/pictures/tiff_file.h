#pragma once

#include "adapters/pictures/open_file.h"
#include "adapters/pictures/raster.h"

namespace orv {

PictureHeader tiffHeader(const OpenFile& file);

/// The first picture of the file as it is stored, not turned yet. Samples of 16 bits are kept where they are plain grey
/// or RGB in whole rows; of all others the upper 8 bits are read, and a deeper picture can't be written back.
Raster readTiff(const OpenFile& file, const PictureHeader& header);

/// The whole file, compressed without loss; failure of a kind that can't be written back where the colours are neither
/// grey nor RGB nor a table.
std::vector<std::uint8_t> tiffBytes(const Raster& raster, const PictureHeader& header);

}  // namespace orv
