#pragma once

#include <string>
#include <string_view>

#include "platform/controls/text_input.h"

namespace orv {

/// Whether one of the mask's classes holds the character. The classes: "9" half-width digits, "#" half-width digits and
/// symbols, "a" "A" half-width letters, "@" half-width symbols, "K" half-width katakana; "ａ" "Ａ" "＃" "＠" "Ｋ" the
/// same in full width. Half-width symbols are neither the blank nor the apostrophe.
bool maskHolds(std::string_view mask, char32_t character);

/// Returns the part of a committed text that a field of that design takes when `kept` is in the field already.
/// Characters that the mask admits only in half width are converted, others that it refuses are dropped, and the rest
/// is cut at the last whole character that fits.
std::string admit(const TextDesign& design, const std::string& kept, const std::string& committed);

/// Hiragana and half-width katakana as full-width katakana, with voiced marks joined; everything else as it stands.
std::string toFullKatakana(std::string_view text);

/// Full-width digits, letters and symbols as half-width ones, all kinds of hyphens and dashes as "-"; everything else
/// as it stands.
std::string toHalfWidth(std::string_view text);

}  // namespace orv
