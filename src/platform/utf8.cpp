#include "platform/utf8.h"

#include <array>
#include <cstdint>

namespace orv {
namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t least;
};

Lead leadOf(unsigned char byte) {
    if (byte < 0x80) return {1, byte, 0};
    if (byte >= 0xC2 && byte < 0xE0) return {2, byte & 0x1FU, 0x80};
    if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0FU, 0x800};
    if (byte >= 0xF0 && byte < 0xF5) return {4, byte & 0x07U, 0x10000};
    return {0, 0, 0};
}

/// Returns the first character and its length in bytes.
std::pair<char32_t, std::size_t> first(std::string_view text) {
    const Lead lead = leadOf(static_cast<unsigned char>(text.front()));
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

}  // namespace orv
