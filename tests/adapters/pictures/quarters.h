#pragma once

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "adapters/pictures/made_pictures.h"

namespace orv::test {

/// Returns the colours in the middle of the four quarters, each by the name of the nearest test colour.
inline std::vector<std::string> quarters(const Pixels& pixels) {
    std::vector<std::string> names;
    for (const auto& [x, y] : std::vector<std::pair<int, int>>{{1, 1}, {3, 1}, {1, 3}, {3, 3}}) {
        const auto at = static_cast<std::size_t>(pixels.height * y / 4 * pixels.width + pixels.width * x / 4);
        const std::uint32_t colour = pixels.argb.at(at);
        std::string name = "other";
        for (const auto& [known, text] : std::vector<std::pair<std::uint32_t, std::string>>{
                 {kRed, "red"}, {kGreen, "green"}, {kBlue, "blue"}, {kWhite, "white"}, {0xFF202020, "dark"}}) {
            bool near = colour >> 24 == 0xFF;
            for (const int shift : {0, 8, 16}) {
                near = near && std::abs(static_cast<int>(colour >> shift & 0xFF) -
                                        static_cast<int>(known >> shift & 0xFF)) < 12;
            }
            name = near ? text : name;
        }
        names.push_back(name);
    }
    return names;
}

inline const std::vector<std::string> kAsMade{"red", "green", "blue", "white"};

}  // namespace orv::test
