#pragma once

#include <string>

#include "platform/controls/check_box.h"
#include "validation/text/text_helpers.h"

namespace orv {

/// True if the flag string has "1" at `index`. False if it is too short.
inline bool flagAt(const std::string& flags, std::size_t index) {
    return PF_MidB(flags, static_cast<std::int32_t>(index) + 1, 1) == "1";
}

/// Returns the flag string of the boxes: "1" for each box that is on, otherwise "0", padded with "0" to `length`.
template <std::size_t N>
std::string readFlags(const ControlArray<CheckBox, N>& boxes, std::size_t length) {
    std::string flags;
    for (std::size_t i = 0; i < N; ++i) {
        flags += boxes[i].value() == 1 ? '1' : '0';
    }
    if (flags.size() < length) {
        flags.append(length - flags.size(), '0');
    }
    return flags;
}

}  // namespace orv
