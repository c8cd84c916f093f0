#include "platform/upper_case.h"

#include <algorithm>
#include <array>

#include "platform/utf8.h"

namespace orv {
namespace {

/// A range of small letters, and the distance from each to its capital.
struct SmallLetters {
    char32_t first;
    char32_t last;
    char32_t distance;
};

constexpr std::array<SmallLetters, 9> kLetters{{{U'a', U'z', 0x20},
                                                {0x00E0, 0x00F6, 0x20},
                                                {0x00F8, 0x00FE, 0x20},
                                                {U'α', U'ρ', 0x20},
                                                {U'σ', U'ω', 0x20},
                                                {U'а', U'я', 0x20},
                                                {U'ё', U'ё', 0x50},
                                                {U'ⅰ', U'ⅿ', 0x10},
                                                {U'ａ', U'ｚ', 0x20}}};

char32_t capital(char32_t character) {
    const auto* row = std::ranges::find_if(kLetters, [character](const SmallLetters& letters) {
        return character >= letters.first && character <= letters.last;
    });
    return row == kLetters.end() ? character : character - row->distance;
}

char asciiCapital(char byte) {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(capital(static_cast<char32_t>(byte))) : byte;
}

}  // namespace

std::string upperCase(std::string_view text) {
    std::u32string characters = toCharacters(text);
    if (toUtf8(characters) != text) {
        std::string bytes(text);
        std::ranges::transform(bytes, bytes.begin(), asciiCapital);
        return bytes;
    }
    std::ranges::transform(characters, characters.begin(), capital);
    return toUtf8(characters);
}

}  // namespace orv
