#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/machine/picture_library.h"

namespace orv {

/// Averages boxes of `side` by `side` pixels, which is fast for pictures of any size. Boxes at the right and bottom
/// edges can have fewer pixels. `Sample` is std::uint8_t or std::uint16_t.
template <typename Sample>
class BoxReducer {
public:
    BoxReducer(PictureSize from, std::size_t channels, int side)
        : from_(from), channels_(channels), side_(side), sums_(static_cast<std::size_t>(to().width) * channels) {}

    PictureSize to() const { return {(from_.width + side_ - 1) / side_, (from_.height + side_ - 1) / side_}; }

    /// Adds one row of the picture, from the top.
    void add(const Sample* row) {
        std::uint64_t* sum = sums_.data();
        for (int x = 0; x < from_.width; x += side_, sum += channels_) {
            for (int end = std::min(x + side_, from_.width), i = x; i < end; ++i, row += channels_) {
                for (std::size_t c = 0; c < channels_; ++c) {
                    sum[c] += row[c];
                }
            }
        }
        ++rows_;
    }

    /// Stores the averages of the rows added since the last call.
    void finishRow(Sample* target) {
        const std::uint64_t* sum = sums_.data();
        for (int x = 0; x < from_.width; x += side_) {
            const auto count = static_cast<std::uint64_t>(std::min(side_, from_.width - x) * rows_);
            for (std::size_t c = 0; c < channels_; ++c) {
                *target++ = static_cast<Sample>((*sum++ + count / 2) / count);
            }
        }
        std::ranges::fill(sums_, 0);
        rows_ = 0;
    }

private:
    PictureSize from_;
    std::size_t channels_;
    int side_;
    std::vector<std::uint64_t> sums_;
    int rows_ = 0;
};

}  // namespace orv
