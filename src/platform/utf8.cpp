#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/ascii.h"

namespace orv {
namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t least;
};

Lead decodeLead(unsigned char byte) {
    if (byte < 0x80) return {1, byte, 0};
    if (byte >= 0xC2 && byte < 0xE0) return {2, byte & 0x1FU, 0x80};
    if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0FU, 0x800};
    if (byte >= 0xF0 && byte < 0xF5) return {4, byte & 0x07U, 0x10000};
    return {0, 0, 0};
}

/// Returns the first character and its length in bytes.
std::pair<char32_t, std::size_t> first(std::string_view text) {
    const Lead lead = decodeLead(static_cast<unsigned char>(text.front()));
    if (lead.length == 0 || lead.length > text.size()) {
        return {kNoCharacter, 1};
    }
    char32_t character = lead.bits;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80) {
            return {kNoCharacter, 1};
        }
        character = (character << 6U) | (byte & 0x3FU);
    }
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (character < lead.least || character > 0x10FFFF || surrogate) {
        return {kNoCharacter, 1};
    }
    return {character, lead.length};
}

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

}  // namespace

std::u32string toCharacters(std::string_view text) {
    std::u32string characters;
    characters.reserve(text.size());
    while (!text.empty()) {
        const auto [character, length] = first(text);
        characters += character;
        text.remove_prefix(length);
    }
    return characters;
}

std::string toUtf8(std::u32string_view characters) {
    std::string text;
    text.reserve(characters.size() * 3);
    const auto tail = [&text](char32_t character, unsigned shift) {
        text += static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
    };
    for (const char32_t character : characters) {
        if (character < 0x80) {
            text += static_cast<char>(character);
        } else if (character < 0x800) {
            text += static_cast<char>(0xC0U | (character >> 6U));
            tail(character, 0);
        } else if (character < 0x10000) {
            text += static_cast<char>(0xE0U | (character >> 12U));
            tail(character, 6);
            tail(character, 0);
        } else {
            text += static_cast<char>(0xF0U | (character >> 18U));
            tail(character, 12);
            tail(character, 6);
            tail(character, 0);
        }
    }
    return text;
}

std::string firstCharacters(std::string_view text, std::size_t count) {
    return toUtf8(std::u32string_view(toCharacters(text)).substr(0, count));
}

std::string upperCase(std::string_view text) {
    std::u32string characters = toCharacters(text);
    if (toUtf8(characters) != text) {
        return upperAscii(std::string(text));
    }
    std::ranges::transform(characters, characters.begin(), capital);
    return toUtf8(characters);
}

}  // namespace orv
