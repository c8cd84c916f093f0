#pragma once

#include <algorithm>
#include <string_view>

namespace orv {

/// Compares names of columns and functions: ASCII letters in either case, all other bytes exactly.
inline bool equalWithoutCase(std::string_view left, std::string_view right) {
    const auto fold = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::ranges::equal(left, right, {}, fold, fold);
}

}  // namespace orv
