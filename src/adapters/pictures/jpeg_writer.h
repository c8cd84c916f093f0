#pragma once

#include "adapters/pictures/jpeg_image.h"

namespace orv {

/// Writes one picture as often as is asked, from planes that are prepared once: the colours at half size, as cameras
/// have them, and every plane filled up to whole blocks. In one pass: progressive files of this size are 3 % smaller at
/// best, larger where the limit is tight, and take two to three times as long.
class JpegWriter {
public:
    explicit JpegWriter(const JpegImage& image);

    /// The whole file. `quality`: 2, the best, to 255, the smallest.
    std::vector<std::uint8_t> written(int quality) const;

private:
    int width_;
    int height_;
    J_COLOR_SPACE colours_;
    bool adobe_;
    std::vector<std::uint8_t> profile_;
    /// One a channel, each of one sample a pixel.
    std::vector<Bitmap> planes_;
};

}  // namespace orv
