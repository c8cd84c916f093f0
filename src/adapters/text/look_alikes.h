#pragma once

namespace orv {

/// What to write for a character that the code page lacks and other systems type in place of one that it holds: the
/// wave dash for the full-width tilde, say. The character itself when there is nothing to put right.
char32_t lookAlikeOf(char32_t character);

/// The two combining voice marks, which some systems send behind their kana instead of one character for both.
constexpr bool isVoiceMark(char32_t character) { return character == 0x3099 || character == 0x309A; }

/// The one character for a kana and a voice mark; 0 when the code page has none.
char32_t voiced(char32_t kana, char32_t mark);

/// The mark as a character that stands by itself, half-width behind half-width kana.
char32_t standingMark(char32_t kana, char32_t mark);

}  // namespace orv
