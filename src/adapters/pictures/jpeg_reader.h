#pragma once

#include "adapters/pictures/open_file.h"
#include "adapters/pictures/picture_header.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// Reads the segments up to the picture's data, nothing of the picture itself.
PictureHeader jpegHeader(const OpenFile& file);

/// The picture upright, decoded to its very end at the smallest scale that keeps enough pixels. The decoder works
/// within 320 MB, which only files in several passes come near; others need the rows at hand and the result.
Pixels jpegPixels(const OpenFile& file);

}  // namespace orv
