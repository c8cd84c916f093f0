#pragma once

#include <cstdio>

#include <jpeglib.h>

#include <vector>

#include "adapters/pixels/bitmap.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// The data read from a JPEG file and written back to one.
struct JpegImage {
    Bitmap bitmap;
    /// JCS_GRAYSCALE, JCS_YCbCr, JCS_CMYK or JCS_YCCK. The samples stay in this form, so that nothing is lost.
    J_COLOR_SPACE colours = JCS_YCbCr;
    /// True if print colours are inverted (255 is blank paper), as in Adobe's programs.
    bool adobe = false;
    std::vector<std::uint8_t> profile;
};

/// Converts the picture for the screen.
Pixels toArgb(const JpegImage& image);

}  // namespace orv
