#include "adapters/pictures/resample.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "adapters/pictures/exif_orientation.h"

namespace orv {
namespace {

constexpr double kLobes = 3;
constexpr std::size_t kChannels = 3;

/// Which source places make one target place, and how much each counts. The weights add up to 1.
struct Taps {
    std::size_t first = 0;
    std::vector<float> weights;
};

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
    const int first = std::max(0, static_cast<int>(std::floor(centre - kLobes * stretch)));
    const int last = std::min(from - 1, static_cast<int>(std::ceil(centre + kLobes * stretch)));
    Taps taps{static_cast<std::size_t>(first), {}};
    double sum = 0;
    for (int i = first; i <= last; ++i) {
        const double weight = lanczos((i + 0.5 - centre) / stretch);
        taps.weights.push_back(static_cast<float>(weight));
        sum += weight;
    }
    for (float& weight : taps.weights) {
        weight = static_cast<float>(weight / sum);
    }
    return taps;
}

std::vector<Taps> tapsFor(int from, int to) {
    std::vector<Taps> taps;
    for (int place = 0; place < to; ++place) {
        taps.push_back(tapsAt(place, from, to));
    }
    return taps;
}

/// One row of the target's height and the source's width, three numbers a pixel.
void blendRows(const Pixels& source, const Taps& taps, std::vector<float>& row) {
    const auto width = static_cast<std::size_t>(source.width);
    std::fill(row.begin(), row.end(), 0.0F);
    for (std::size_t i = 0; i < taps.weights.size(); ++i) {
        const std::uint32_t* pixel = &source.argb[(taps.first + i) * width];
        const float weight = taps.weights[i];
        for (std::size_t x = 0; x < width; ++x) {
            row[x * kChannels] += weight * static_cast<float>(pixel[x] >> 16 & 0xFF);
            row[x * kChannels + 1] += weight * static_cast<float>(pixel[x] >> 8 & 0xFF);
            row[x * kChannels + 2] += weight * static_cast<float>(pixel[x] & 0xFF);
        }
    }
}

std::uint32_t channel(float value) { return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0F, 255.0F))); }

std::uint32_t blendPlaces(const std::vector<float>& row, const Taps& taps) {
    std::array<float, kChannels> sums{};
    for (std::size_t i = 0; i < taps.weights.size(); ++i) {
        for (std::size_t c = 0; c < kChannels; ++c) {
            sums[c] += taps.weights[i] * row[(taps.first + i) * kChannels + c];
        }
    }
    return 0xFF000000U | channel(sums[0]) << 16 | channel(sums[1]) << 8 | channel(sums[2]);
}

}  // namespace

Pixels resampled(const Pixels& source, int width, int height) {
    const auto columns = tapsFor(source.width, width);
    std::vector<float> row(static_cast<std::size_t>(source.width) * kChannels);
    Pixels target{width, height, {}};
    target.argb.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        blendRows(source, tapsAt(y, source.height, height), row);
        for (const Taps& taps : columns) {
            target.argb.push_back(blendPlaces(row, taps));
        }
    }
    return target;
}

Pixels upright(const Pixels& source, int orientation) {
    const bool swap = swapsSides(orientation);
    const bool fromRight = orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
    const bool fromBottom = orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
    Pixels target{swap ? source.height : source.width, swap ? source.width : source.height, {}};
    target.argb.reserve(source.argb.size());
    for (int y = 0; y < target.height; ++y) {
        for (int x = 0; x < target.width; ++x) {
            const int across = swap ? y : x;
            const int down = swap ? x : y;
            const int column = fromRight ? source.width - 1 - across : across;
            const int line = fromBottom ? source.height - 1 - down : down;
            target.argb.push_back(source.argb[static_cast<std::size_t>(line) * static_cast<std::size_t>(source.width) +
                                              static_cast<std::size_t>(column)]);
        }
    }
    return target;
}

}  // namespace orv
