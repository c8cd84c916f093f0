#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "adapters/pixels/bitmap.h"

namespace orv {

/// The number of samples on a side of a block, and of frequencies on a side of its transform.
inline constexpr int kBlockSide = 8;
inline constexpr std::size_t kBlockSize = 64;

/// One channel of a picture as frequencies: block by block from the top, 64 numbers each, the lowest first.
struct FrequencyPlane {
    int blocksAcross = 0;
    int blocksDown = 0;
    /// In sixteenths, so that they fit 16 bits and are rounded only once, when they are quantised.
    std::vector<std::int16_t> frequencies;

    const std::int16_t* block(int across, int down) const {
        return frequencies.data() + (static_cast<std::size_t>(down) * static_cast<std::size_t>(blocksAcross) +
                                     static_cast<std::size_t>(across)) *
                                        kBlockSize;
    }
};

/// `samples` has one channel, and its sides are whole blocks.
FrequencyPlane transform(const Bitmap& samples);

/// Converts frequencies to the stored numbers, by one quantisation table.
class Quantiser {
public:
    /// `steps` has 64 entries in the order of the table.
    explicit Quantiser(const std::uint16_t* steps);

    void quantise(const std::int16_t* frequencies, std::int16_t* stored) const;

private:
    std::array<float, kBlockSize> shares_{};
    std::array<float, kBlockSize> roundings_{};
};

}  // namespace orv
