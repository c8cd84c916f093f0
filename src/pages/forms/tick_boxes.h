#pragma once

#include <array>
#include <string_view>

#include "platform/controls/check_box.h"
#include "platform/design.h"

namespace orv {

/// Returns boxes that start unticked, with the colours for that, one for each caption.
template <std::size_t N>
constexpr std::array<CheckDesign, N> tickBoxes(const std::array<std::string_view, N>& captions, int tabRank = 0) {
    std::array<CheckDesign, N> designs{};
    for (std::size_t i = 0; i < N; ++i) {
        designs[i] = {.caption = captions[i], .back = kTickOff, .fore = kTickOffText, .tabRank = tabRank};
    }
    return designs;
}

}  // namespace orv
