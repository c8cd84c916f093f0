#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orv {

/// Returns the text without the byte order mark that some editors put at its start.
constexpr std::string_view withoutByteOrderMark(std::string_view text) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    return text.substr(text.starts_with(kMark) ? kMark.size() : 0);
}

/// Returns the characters of a UTF-8 text. A byte that is not UTF-8 becomes U+FFFD.
std::u32string toCharacters(std::string_view text);

std::string toUtf8(std::u32string_view characters);

/// Returns the first `count` characters of a UTF-8 text, or all of them.
std::string firstCharacters(std::string_view text, std::size_t count);

/// Converts to capitals as Windows does, independent of the locale: Latin, Greek, Cyrillic, full-width letters and
/// small Roman numerals. In a text that is not UTF-8 only ASCII letters change.
std::string upperCase(std::string_view text);

}  // namespace orv
