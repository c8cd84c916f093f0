#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orv {

/// Longer words from outside are cut.
inline constexpr std::size_t kLongestPrintable = 500;

/// False for a character that could move the cursor, change a line's direction, hide, or fake a line: controls, line
/// separators, bidirectional and zero-width marks.
bool isPrintable(char32_t character);

/// Words that another program, a server or a row of the store chose, for a message, the log or a terminal: one line of
/// valid UTF-8, with a blank for each unprintable character, at most `kLongestPrintable` characters and an ellipsis.
std::string printable(std::string_view words);

}  // namespace orv
