#pragma once

#include "adapters/pictures/open_file.h"
#include "adapters/pictures/picture_header.h"

namespace orv {

/// Raises the failure for a damaged picture when a BMP or GIF file ends before its (first) picture does: the decoder
/// leaves what is missing blank and says nothing. Other formats pass, their decoders see it themselves.
void requireWhole(const OpenFile& file, PictureFormat format);

}  // namespace orv
