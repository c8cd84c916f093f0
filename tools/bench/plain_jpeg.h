#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "adapters/pixels/bitmap.h"

namespace bench {

/// Decodes a file with the library alone: its luminance only, or all three channels. `eighths` scales the result.
orv::Bitmap decoded(const std::string& path, bool onlyLight, unsigned eighths = 8);

/// Encodes three channels in memory with optimised tables and returns the size.
std::size_t encoded(const orv::Bitmap& bitmap, int libraryQuality);

/// Resizes with the program's own filter.
orv::Bitmap resampled(const orv::Bitmap& source, int width, int height);

struct Likeness {
    /// Decibels.
    double psnr = 0;
    /// The mean over windows of 8 by 8 at every 4th position. 1 means identical pictures.
    double ssim = 0;
};
Likeness likeness(const orv::Bitmap& reference, const orv::Bitmap& other);

}  // namespace bench
