#pragma once

#include "adapters/pixels/open_file.h"
#include "adapters/pixels/picture_header.h"
#include "platform/machine/file_system.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// Loads PNG, BMP, GIF and TIFF.
std::unique_ptr<Picture> loadRaster(FileSystem& files, const OpenFile& file, const PictureHeader& header,
                                    PictureSize within);

}  // namespace orv
