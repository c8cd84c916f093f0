#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orv {

/// Longer texts from outside are truncated.
inline constexpr std::size_t kLongestPrintable = 500;

/// False for a character that could move the cursor, reverse a line, be invisible, or fake a line: controls, line
/// separators, bidirectional and zero-width marks.
bool isPrintable(char32_t character);

/// Prepares a text from another program, a server or a row for a message, the log or a terminal. Returns one line of
/// valid UTF-8 with a blank for each unprintable character. It has at most `kLongestPrintable` characters and an
/// ellipsis.
std::string printable(std::string_view words);

}  // namespace orv
