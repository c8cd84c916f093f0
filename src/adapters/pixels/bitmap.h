#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace orv {

/// A decoded picture: rows from the top, the samples of a pixel adjacent, no gaps between rows.
struct Bitmap {
    int width = 0;
    int height = 0;
    std::size_t channels = 0;
    std::vector<std::uint8_t> samples;

    std::size_t stride() const { return static_cast<std::size_t>(width) * channels; }
    std::uint8_t* row(int y) { return samples.data() + static_cast<std::size_t>(y) * stride(); }
    const std::uint8_t* row(int y) const { return samples.data() + static_cast<std::size_t>(y) * stride(); }
};

/// Returns a picture of that size with all samples 0.
inline Bitmap blankBitmap(int width, int height, std::size_t channels) {
    return {width, height, channels,
            std::vector<std::uint8_t>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * channels)};
}

}  // namespace orv
