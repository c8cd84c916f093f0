#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace orv {

// Letters, digits and blanks of ASCII, independent of the locale. No other byte counts as one or changes.

constexpr bool isAsciiDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isAsciiCapital(char c) { return c >= 'A' && c <= 'Z'; }
constexpr char upperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr bool isAsciiLetter(char c) { return isAsciiCapital(upperAscii(c)); }
constexpr bool isAsciiAlphanumeric(char c) { return isAsciiLetter(c) || isAsciiDigit(c); }

inline std::string upperAscii(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) { return upperAscii(c); });
    return text;
}

/// Compares names: letters in either case, all other bytes exactly.
inline bool equalWithoutCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, [](char x, char y) { return upperAscii(x) == upperAscii(y); });
}

inline constexpr std::string_view kBlanksAndTabs = " \t";
/// Blanks around the content of a line. A file with the line ends of Windows leaves "\r" at its end.
inline constexpr std::string_view kLineBlanks = " \t\r";
inline constexpr std::string_view kAllBlanks = " \t\r\n\f";

/// Returns the text without the characters of `blanks` at its start.
constexpr std::string_view trimmedLeft(std::string_view text, std::string_view blanks = " ") {
    return text.substr(std::min(text.find_first_not_of(blanks), text.size()));
}

/// Returns the text without the characters of `blanks` at its end.
constexpr std::string_view trimmedRight(std::string_view text, std::string_view blanks = " ") {
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// Returns the text without the characters of `blanks` at both ends.
constexpr std::string_view trimmed(std::string_view text, std::string_view blanks = " ") {
    return trimmedRight(trimmedLeft(text, blanks), blanks);
}

/// Returns the text without a pair of equal quotes around it, single or double.
constexpr std::string_view withoutQuotes(std::string_view text) {
    const bool quoted = text.size() >= 2 && text.front() == text.back() && (text[0] == '"' || text[0] == '\'');
    return quoted ? text.substr(1, text.size() - 2) : text;
}

/// Returns the text as a C function reads it: up to the first NUL.
inline std::string_view upToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

}  // namespace orv
