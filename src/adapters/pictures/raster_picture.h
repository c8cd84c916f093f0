#pragma once

#include "adapters/pictures/open_file.h"
#include "adapters/pictures/picture_header.h"
#include "platform/machine/file_system.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// Loads PNG, BMP, GIF and TIFF.
std::unique_ptr<Picture> loadRaster(FileSystem& files, const OpenFile& file, const PictureHeader& header,
                                    PictureSize within);

}  // namespace orv
