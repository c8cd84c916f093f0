#pragma once

#include <string>
#include <string_view>

#include "platform/controls/text_input.h"

namespace orv {

/// True if one of the mask's classes contains the character. Classes: "9" half-width digits, "#" half-width digits and
/// symbols, "a" "A" half-width letters, "@" half-width symbols, "K" half-width katakana; "ａ" "Ａ" "＃" "＠" "Ｋ" the
/// same in full width. Half-width symbols exclude the blank and the apostrophe.
bool maskHolds(std::string_view mask, char32_t character);

/// Returns the part of a committed text that a field accepts when it already contains `kept`. Converts characters that
/// the mask accepts only in half width and drops others that it rejects. The rest is cut after the last whole character
/// that fits.
std::string admit(const TextDesign& design, const std::string& kept, const std::string& committed);

/// Converts hiragana and half-width katakana to full-width katakana and joins voiced marks. Keeps everything else.
std::string toFullKatakana(std::string_view text);

/// Converts full-width digits, letters and symbols to half width, and all kinds of hyphens and dashes to "-". Keeps
/// everything else.
std::string toHalfWidth(std::string_view text);

}  // namespace orv
