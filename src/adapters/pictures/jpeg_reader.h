#pragma once

#include "adapters/pictures/jpeg_image.h"
#include "adapters/pictures/open_file.h"
#include "adapters/pictures/picture_header.h"

namespace orv {

/// Reads the header of a JPEG file, its sides as they are when the picture stands upright.
PictureHeader jpegHeader(const OpenFile& file);

/// The whole picture as it is stored, not turned. It is decoded at an eighth, a quarter or a half of its size where
/// that leaves `share` or more of its sides, which is between 0 and 1.
JpegImage jpegImage(const OpenFile& file, double share);

}  // namespace orv
