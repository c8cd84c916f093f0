#include "adapters/pixels/resampler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>
#include <utility>

#include "platform/waiting.h"

// Compiles the critical functions for wider vector units too, and the program uses those that the machine has. Not with
// sanitizers or other tools, which cannot follow that choice, and not on Windows, whose programs cannot make it.
#if defined(__x86_64__) && !defined(_WIN32) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define ORV_WIDE_VECTORS [[gnu::target_clones("default", "avx2")]]
#else
#define ORV_WIDE_VECTORS
#endif

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

/// The number of rows handled together, so that the sums are accessed less often.
constexpr std::size_t kRowsAtOnce = 4;

template <typename Sample>
using Rows = std::array<const Sample*, kRowsAtOnce>;
using Weights = std::array<float, kRowsAtOnce>;

template <typename Sample>
inline void addTo(float* sums, std::size_t count, Rows<Sample> rows, Weights weights) {
    for (std::size_t i = 0; i < count; ++i) {
        sums[i] += weights[0] * static_cast<float>(rows[0][i]) + weights[1] * static_cast<float>(rows[1][i]) +
                   weights[2] * static_cast<float>(rows[2][i]) + weights[3] * static_cast<float>(rows[3][i]);
    }
}

ORV_WIDE_VECTORS void addRowsTo(float* sums, std::size_t count, Rows<std::uint8_t> rows, Weights weights) {
    addTo(sums, count, rows, weights);
}

ORV_WIDE_VECTORS void addRowsTo(float* sums, std::size_t count, Rows<std::uint16_t> rows, Weights weights) {
    addTo(sums, count, rows, weights);
}

template <typename Sample>
Sample rounded(float value) {
    return static_cast<Sample>(std::clamp(value + 0.5F, 0.0F, static_cast<float>(std::numeric_limits<Sample>::max())));
}

/// Enough channels for any pixel, in one vector unit.
using Pixel [[gnu::vector_size(16)]] = float;
constexpr std::size_t kMostChannels = sizeof(Pixel) / sizeof(float);

inline Pixel pixelAt(const float* source) {
    Pixel pixel;
    std::memcpy(&pixel, source, sizeof pixel);
    return pixel;
}

/// A pixel with fewer channels also reads those of the next one; there is space for them after the last pixel. Two sums
/// avoid waiting for the previous addition.
inline Pixel blended(const Taps& taps, std::size_t channels, const float* sums) {
    const float* source = sums + static_cast<std::size_t>(taps.first) * channels;
    const std::size_t count = taps.weights.size();
    Pixel even{};
    Pixel odd{};
    std::size_t at = 0;
    for (; at + 1 < count; at += 2, source += 2 * channels) {
        even += taps.weights[at] * pixelAt(source);
        odd += taps.weights[at + 1] * pixelAt(source + channels);
    }
    return at < count ? even + odd + taps.weights[at] * pixelAt(source) : even + odd;
}

/// Each pixel overwrites the extra channels of the one before it.
ORV_WIDE_VECTORS void blendPlaces(const std::vector<Taps>& columns, std::size_t channels, const float* sums,
                                  float* line) {
    for (const Taps& taps : columns) {
        const Pixel pixel = blended(taps, channels, sums);
        std::memcpy(line, &pixel, sizeof pixel);
        line += channels;
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
      sums_(static_cast<std::size_t>(from.width) * channels + kMostChannels),
      line_(static_cast<std::size_t>(to.width) * channels + kMostChannels),
      target_(static_cast<std::size_t>(to.width) * channels) {
    for (int x = 0; x < to.width; ++x) {
        columns_.push_back(tapsAt(x, from.width, to.width));
    }
}

template <typename Sample>
void Resampler<Sample>::push(const Sample* row) {
    whileWaiting();
    keep(row);
    while (finished_ < to_.height && next_.last() < firstRow_ + static_cast<int>(rows_.size())) {
        addRows();
        finish();
        moveOn();
    }
}

template <typename Sample>
void Resampler<Sample>::keep(const Sample* row) {
    std::vector<Sample> kept;
    if (!spare_.empty()) {
        kept = std::move(spare_.back());
        spare_.pop_back();
    }
    kept.assign(row, row + static_cast<std::size_t>(from_.width) * channels_);
    rows_.push_back(std::move(kept));
}

template <typename Sample>
void Resampler<Sample>::addRows() {
    std::ranges::fill(sums_, 0.0F);
    const auto first = static_cast<std::size_t>(next_.first - firstRow_);
    const std::size_t count = next_.weights.size();
    for (std::size_t at = 0; at < count; at += kRowsAtOnce) {
        Rows<Sample> rows{};
        Weights weights{};
        for (std::size_t i = 0; i < kRowsAtOnce; ++i) {
            const std::size_t tap = std::min(at + i, count - 1);
            rows[i] = rows_[first + tap].data();
            weights[i] = at + i < count ? next_.weights[tap] : 0;
        }
        addRowsTo(sums_.data(), sums_.size() - kMostChannels, rows, weights);
    }
}

template <typename Sample>
void Resampler<Sample>::finish() {
    blendPlaces(columns_, channels_, sums_.data(), line_.data());
    std::transform(line_.begin(), line_.begin() + std::ssize(target_), target_.begin(), rounded<Sample>);
    sink_(target_);
}

/// Continues with the next target row and drops source rows that are no longer needed.
template <typename Sample>
void Resampler<Sample>::moveOn() {
    ++finished_;
    if (finished_ == to_.height) {
        return;
    }
    next_ = tapsAt(finished_, from_.height, to_.height);
    for (; !rows_.empty() && firstRow_ < next_.first; ++firstRow_) {
        spare_.push_back(std::move(rows_.front()));
        rows_.pop_front();
    }
}

template class Resampler<std::uint8_t>;
template class Resampler<std::uint16_t>;

}  // namespace orv
