#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "adapters/pixels/bitmap.h"

namespace bench {

/// A file's luminance, or with `eighths` below 8 all three channels, by the library alone.
orv::Bitmap decoded(const std::string& path, bool onlyLight, unsigned eighths = 8);

/// One encoding of three channels in memory, with tables of its own; the size.
std::size_t encoded(const orv::Bitmap& bitmap, int libraryQuality);

/// By the program's own filter.
orv::Bitmap resampled(const orv::Bitmap& source, int width, int height);

struct Likeness {
    /// Decibels.
    double psnr = 0;
    /// The mean over windows of 8 by 8, every 4 places; 1 is the same picture.
    double ssim = 0;
};
Likeness likeness(const orv::Bitmap& reference, const orv::Bitmap& other);

}  // namespace bench
