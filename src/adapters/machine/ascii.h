#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace orv {

/// Folds the case of ASCII letters. Keys and names of machines are compared in this way, whatever the locale.
constexpr char foldAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

inline std::string upperAscii(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), foldAscii);
    return text;
}

inline bool sameFolded(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return foldAscii(x) == foldAscii(y); });
}

/// Returns the text without blanks and tabs at both ends.
inline std::string_view trimBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// Returns the text as a C function reads it: up to the first NUL.
inline std::string_view upToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

}  // namespace orv
