#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

#include "platform/machine/picture_library.h"

namespace orv {

/// Which source places make one target place, and how much each counts. The weights add up to 1.
struct Taps {
    int first = 0;
    std::vector<float> weights;

    int last() const { return first + static_cast<int>(weights.size()) - 1; }
};

/// Brings a picture to another size by a Lanczos filter of three lobes that averages when it shrinks. Source rows go in
/// from the top, each once; target rows come out as soon as they are whole, so that no more than a few rows of either
/// are held. `Sample`: std::uint8_t or std::uint16_t.
template <typename Sample>
class Resampler {
public:
    using Sink = std::function<void(const std::vector<Sample>& row)>;

    Resampler(PictureSize from, PictureSize to, std::size_t channels, Sink sink);

    void push(const Sample* row);

private:
    /// A target row that is still being added up, at the source's width.
    struct OpenRow {
        Taps taps;
        std::vector<float> sums;
    };

    void openRows();
    void finish(const std::vector<float>& sums);

    PictureSize from_;
    PictureSize to_;
    std::size_t channels_;
    Sink sink_;
    /// Of the target row that is opened next.
    Taps next_;
    std::vector<Taps> columns_;
    std::deque<OpenRow> open_;
    std::vector<std::vector<float>> spare_;
    std::vector<float> line_;
    std::vector<Sample> target_;
    int pushed_ = 0;
    int opened_ = 0;
};

extern template class Resampler<std::uint8_t>;
extern template class Resampler<std::uint16_t>;

}  // namespace orv
