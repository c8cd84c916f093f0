#include "adapters/pictures/resampler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace orv {
namespace {

constexpr double kLobes = 3;

double lanczos(double x) {
    if (x == 0) {
        return 1;
    }
    if (std::abs(x) >= kLobes) {
        return 0;
    }
    const double angle = std::numbers::pi * x;
    return kLobes * std::sin(angle) * std::sin(angle / kLobes) / (angle * angle);
}

Taps tapsAt(int place, int from, int to) {
    const double ratio = static_cast<double>(from) / to;
    const double stretch = std::max(1.0, ratio);
    const double centre = (place + 0.5) * ratio;
    Taps taps{std::max(0, static_cast<int>(std::floor(centre - kLobes * stretch))), {}};
    const int last = std::min(from - 1, static_cast<int>(std::ceil(centre + kLobes * stretch)));
    double sum = 0;
    for (int i = taps.first; i <= last; ++i) {
        const double weight = lanczos((i + 0.5 - centre) / stretch);
        taps.weights.push_back(static_cast<float>(weight));
        sum += weight;
    }
    for (float& weight : taps.weights) {
        weight = static_cast<float>(weight / sum);
    }
    return taps;
}

void addTo(std::vector<float>& sums, const std::vector<float>& line, float weight) {
    float* sum = sums.data();
    const float* value = line.data();
    for (std::size_t i = 0; i < sums.size(); ++i) {
        sum[i] += weight * value[i];
    }
}

template <typename Sample>
Sample rounded(float value) {
    return static_cast<Sample>(std::clamp(value + 0.5F, 0.0F, static_cast<float>(std::numeric_limits<Sample>::max())));
}

/// The number of channels is known to the compiler, so that a pixel's sums stay in registers.
template <std::size_t Channels, typename Sample>
void blendPlaces(const std::vector<Taps>& columns, const float* sums, Sample* target) {
    for (const Taps& taps : columns) {
        std::array<float, Channels> pixel{};
        const float* source = sums + static_cast<std::size_t>(taps.first) * Channels;
        for (const float weight : taps.weights) {
            for (std::size_t c = 0; c < Channels; ++c) {
                pixel[c] += weight * source[c];
            }
            source += Channels;
        }
        for (const float value : pixel) {
            *target++ = rounded<Sample>(value);
        }
    }
}

}  // namespace

template <typename Sample>
Resampler<Sample>::Resampler(PictureSize from, PictureSize to, std::size_t channels, Sink sink)
    : from_(from),
      to_(to),
      channels_(channels),
      sink_(std::move(sink)),
      next_(tapsAt(0, from.height, to.height)),
      line_(static_cast<std::size_t>(from.width) * channels),
      target_(static_cast<std::size_t>(to.width) * channels) {
    for (int x = 0; x < to.width; ++x) {
        columns_.push_back(tapsAt(x, from.width, to.width));
    }
}

template <typename Sample>
void Resampler<Sample>::openRows() {
    while (opened_ < to_.height && next_.first <= pushed_) {
        std::vector<float> sums;
        if (!spare_.empty()) {
            sums = std::move(spare_.back());
            spare_.pop_back();
        }
        sums.assign(line_.size(), 0.0F);
        open_.push_back({std::move(next_), std::move(sums)});
        ++opened_;
        next_ = tapsAt(opened_, from_.height, to_.height);
    }
}

template <typename Sample>
void Resampler<Sample>::push(const Sample* row) {
    std::copy_n(row, line_.size(), line_.begin());
    openRows();
    for (OpenRow& one : open_) {
        addTo(one.sums, line_, one.taps.weights[static_cast<std::size_t>(pushed_ - one.taps.first)]);
    }
    while (!open_.empty() && open_.front().taps.last() == pushed_) {
        finish(open_.front().sums);
        spare_.push_back(std::move(open_.front().sums));
        open_.pop_front();
    }
    ++pushed_;
}

template <typename Sample>
void Resampler<Sample>::finish(const std::vector<float>& sums) {
    const auto blend = channels_ == 1   ? blendPlaces<1, Sample>
                       : channels_ == 3 ? blendPlaces<3, Sample>
                                        : blendPlaces<4, Sample>;
    blend(columns_, sums.data(), target_.data());
    sink_(target_);
}

template class Resampler<std::uint8_t>;
template class Resampler<std::uint16_t>;

}  // namespace orv
