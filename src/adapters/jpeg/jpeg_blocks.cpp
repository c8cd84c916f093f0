#include "adapters/jpeg/jpeg_blocks.h"

#include <array>
#include <cmath>
#include <numbers>

namespace orv {
namespace {

constexpr float kFraction = 16;

/// Eight numbers in vector units.
using Line [[gnu::vector_size(kBlockSide * sizeof(float))]] = float;
using Square = std::array<Line, kBlockSide>;

/// Returns the cosine transform of eight samples; each line has the weights of one frequency.
Square transformWeights() {
    Square weights{};
    for (int frequency = 0; frequency < kBlockSide; ++frequency) {
        const double scale = frequency == 0 ? std::numbers::sqrt2 / 4 : 0.5;
        for (int place = 0; place < kBlockSide; ++place) {
            weights[static_cast<std::size_t>(frequency)][place] =
                static_cast<float>(scale * std::cos((2 * place + 1) * frequency * std::numbers::pi / 16));
        }
    }
    return weights;
}

/// Transforms every column and transposes the result, so that a second call transforms the rows.
Square columnsTransformed(const Square& weights, const Square& samples) {
    Square turned{};
    for (int frequency = 0; frequency < kBlockSide; ++frequency) {
        Line sums{};
        for (int place = 0; place < kBlockSide; ++place) {
            sums += weights[static_cast<std::size_t>(frequency)][place] * samples[static_cast<std::size_t>(place)];
        }
        for (int column = 0; column < kBlockSide; ++column) {
            turned[static_cast<std::size_t>(column)][frequency] = sums[column];
        }
    }
    return turned;
}

Square readSamples(const Bitmap& plane, int across, int down) {
    constexpr float kMiddle = 128;
    Square samples{};
    for (int y = 0; y < kBlockSide; ++y) {
        const std::uint8_t* row = plane.row(down * kBlockSide + y) + across * kBlockSide;
        for (int x = 0; x < kBlockSide; ++x) {
            samples[static_cast<std::size_t>(y)][x] = static_cast<float>(row[x]) - kMiddle;
        }
    }
    return samples;
}

std::int16_t rounded(float value) { return static_cast<std::int16_t>(value + std::copysign(0.5F, value)); }

}  // namespace

FrequencyPlane transform(const Bitmap& samples) {
    static const Square kWeights = transformWeights();
    FrequencyPlane plane{samples.width / kBlockSide, samples.height / kBlockSide, {}};
    plane.frequencies.resize(samples.samples.size());
    auto* target = plane.frequencies.data();
    for (int down = 0; down < plane.blocksDown; ++down) {
        for (int across = 0; across < plane.blocksAcross; ++across) {
            const Square columns = columnsTransformed(kWeights, readSamples(samples, across, down));
            for (const Line& line : columnsTransformed(kWeights, columns)) {
                for (int i = 0; i < kBlockSide; ++i) {
                    *target++ = rounded(line[i] * kFraction);
                }
            }
        }
    }
    return plane;
}

Quantiser::Quantiser(const std::uint16_t* steps) {
    constexpr float kNearest = 0.5F;
    constexpr float kLower = 0.42F;
    for (std::size_t i = 0; i < kBlockSize; ++i) {
        shares_[i] = 1 / (kFraction * static_cast<float>(steps[i]));
        roundings_[i] = i == 0 ? kNearest : kLower;
    }
}

void Quantiser::quantise(const std::int16_t* frequencies, std::int16_t* stored) const {
    for (std::size_t i = 0; i < kBlockSize; ++i) {
        const float value = static_cast<float>(frequencies[i]) * shares_[i];
        stored[i] = static_cast<std::int16_t>(value + std::copysign(roundings_[i], value));
    }
}

}  // namespace orv
