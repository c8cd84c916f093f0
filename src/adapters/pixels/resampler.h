#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

#include "platform/machine/picture_library.h"

namespace orv {

/// The source positions for one target position, and their weights. The weights add up to 1.
struct Taps {
    int first = 0;
    std::vector<float> weights;

    int last() const { return first + static_cast<int>(weights.size()) - 1; }
};

/// Resizes a picture by a Lanczos filter of three lobes, which averages when reducing. Source rows are added from the
/// top, each once. Target rows are produced as soon as they are complete, so that only the source rows of one target
/// row are stored. `Sample` is std::uint8_t or std::uint16_t.
template <typename Sample>
class Resampler {
public:
    using Sink = std::function<void(const std::vector<Sample>& row)>;

    Resampler(PictureSize from, PictureSize to, std::size_t channels, Sink sink);

    void push(const Sample* row);

private:
    void keep(const Sample* row);
    void addRows();
    void finish();
    void moveOn();

    PictureSize from_;
    PictureSize to_;
    std::size_t channels_;
    Sink sink_;
    std::vector<Taps> columns_;
    /// Weights for the next target row.
    Taps next_;
    int finished_ = 0;
    /// The source rows that are still needed, and the number of the first of them.
    std::deque<std::vector<Sample>> rows_;
    int firstRow_ = 0;
    std::vector<std::vector<Sample>> spare_;
    /// The target row at the source's width.
    std::vector<float> sums_;
    std::vector<float> line_;
    std::vector<Sample> target_;
};

extern template class Resampler<std::uint8_t>;
extern template class Resampler<std::uint16_t>;

}  // namespace orv
