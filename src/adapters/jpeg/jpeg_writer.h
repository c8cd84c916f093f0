#pragma once

#include <map>

#include "adapters/jpeg/jpeg_blocks.h"
#include "adapters/jpeg/jpeg_image.h"

namespace orv {

/// Writes one picture repeatedly from frequencies calculated once, with colours at half size as in cameras. Keeps the
/// results, because the last save of a search repeats an earlier one. Writes one pass. Progressive files of this size
/// are at best 3 % smaller, larger at tight limits, and two to three times slower.
class JpegWriter {
public:
    explicit JpegWriter(const JpegImage& image);

    /// Returns the whole file, valid until the next call.
    const std::vector<std::uint8_t>& written(int quality);

private:
    std::vector<std::uint8_t> encoded(int quality) const;

    int width_;
    int height_;
    J_COLOR_SPACE colours_;
    bool adobe_;
    std::vector<std::uint8_t> profile_;
    /// One per channel.
    std::vector<FrequencyPlane> planes_;
    /// By quality.
    std::map<int, std::vector<std::uint8_t>> written_;
};

}  // namespace orv
