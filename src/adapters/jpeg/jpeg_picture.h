#pragma once

#include "adapters/jpeg/jpeg_image.h"
#include "adapters/pixels/open_file.h"
#include "adapters/pixels/picture_header.h"
#include "platform/machine/file_system.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// Reads the header of a JPEG file. The sides are those of the upright picture.
PictureHeader jpegHeader(const OpenFile& file);

/// Returns the whole picture as stored, not rotated. It is decoded at an eighth, a quarter or a half of its size if at
/// least `share` (0 to 1) of its sides remains.
JpegImage jpegImage(const OpenFile& file, double share);

std::unique_ptr<Picture> loadJpeg(FileSystem& files, const OpenFile& file, const PictureHeader& header,
                                  PictureSize within);

}  // namespace orv
