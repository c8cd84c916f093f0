#pragma once

#include <algorithm>
#include <string_view>

namespace orv {

/// Names of columns and functions compare so: ASCII letters without regard to case, everything else to the byte.
inline bool equalWithoutCase(std::string_view left, std::string_view right) {
    const auto fold = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::ranges::equal(left, right, {}, fold, fold);
}

}  // namespace orv
