#pragma once

namespace orv {

/// Returns the replacement for a character that is missing in the code page and that other systems type for a similar
/// one. An example is the wave dash for the full-width tilde. Returns the character itself if it has no replacement.
char32_t replaceLookAlike(char32_t character);

/// The two combining voice marks, which some systems send after their kana instead of one combined character.
constexpr bool isVoiceMark(char32_t character) { return character == 0x3099 || character == 0x309A; }

/// Returns the combined character for a kana and a voice mark, or 0 if the code page has none.
char32_t voiced(char32_t kana, char32_t mark);

/// Returns the mark as a separate character, in half width after half-width kana.
char32_t spacingMark(char32_t kana, char32_t mark);

}  // namespace orv
