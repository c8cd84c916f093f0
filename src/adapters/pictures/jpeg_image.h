#pragma once

#include <cstdio>

#include <jpeglib.h>

#include <vector>

#include "adapters/pictures/bitmap.h"
#include "platform/machine/picture_library.h"

namespace orv {

/// What is read out of a JPEG file and goes back into one.
struct JpegImage {
    Bitmap bitmap;
    /// JCS_GRAYSCALE, JCS_YCbCr, JCS_CMYK or JCS_YCCK; the samples are left in it, so that nothing is lost on the way.
    J_COLOR_SPACE colours = JCS_YCbCr;
    /// Print colours are turned round (255 is no ink), as Adobe's programs have it.
    bool adobe = false;
    std::vector<std::uint8_t> profile;
};

/// For the screen.
Pixels argbOf(const JpegImage& image);

}  // namespace orv
