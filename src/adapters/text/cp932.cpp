#include "adapters/text/cp932.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/text/code_conversion.h"
#include "platform/utf8.h"

namespace orv {
namespace {

constexpr char32_t kMiddleDot = 0x30FB;
constexpr unsigned kCodes = 0x10000;

/// Bytes that the C library of Linux rejects and Windows converts to one character each.
constexpr auto kSingleBytes = std::to_array<std::pair<std::uint16_t, char16_t>>(
    {{0x80, 0x0080}, {0xA0, 0xF8F0}, {0xFD, 0xF8F1}, {0xFE, 0xF8F2}, {0xFF, 0xF8F3}});

constexpr bool isTrail(unsigned byte) { return byte >= 0x40 && byte <= 0xFC && byte != 0x7F; }

/// Appends the bytes of a code: one below 0x100, otherwise lead and trail.
void appendCode(std::string& bytes, unsigned code) {
    if (code > 0xFF) {
        bytes += static_cast<char>(code >> 8U);
    }
    bytes += static_cast<char>(code & 0xFFU);
}

unsigned toNumber(std::string_view bytes) {
    unsigned number = 0;
    for (const char byte : bytes) {
        number = (number << 8U) | static_cast<unsigned char>(byte);
    }
    return number;
}

}  // namespace

/// 0 means "no such character" in both directions; NUL itself is code 0.
struct Cp932::Tables {
    std::array<char16_t, kCodes> characters{};
    std::array<std::uint16_t, kCodes> codes{};

    Tables() {
        std::vector<unsigned> single;
        for (unsigned code = 1; code < 0x100; ++code) {
            if (isLeadByte(static_cast<char>(code))) {
                addRow(listCodes(code));
            } else {
                single.push_back(code);
            }
        }
        addRow(single);
        for (const auto& [code, character] : kSingleBytes) {
            characters[code] = character;
            codes[character] = code;
        }
    }

    /// Returns the code of the character, if the code page contains it.
    std::optional<unsigned> findCode(char32_t character) const {
        if (character >= kCodes || (character != 0 && codes[character] == 0)) {
            return std::nullopt;
        }
        return codes[character];
    }

private:
    CodeConversion decoded_{CodeConversion::Direction::Decode};
    CodeConversion encoded_{CodeConversion::Direction::Encode};

    static std::vector<unsigned> listCodes(unsigned lead) {
        std::vector<unsigned> row;
        for (unsigned trail = 0; trail < 0x100; ++trail) {
            if (isTrail(trail)) {
                row.push_back((lead << 8U) | trail);
            }
        }
        return row;
    }

    /// Adds codes of one length. Each is a character of 16 bits, or invalid; the conversion then stops and continues
    /// after it.
    void addRow(const std::vector<unsigned>& row) {
        std::string bytes;
        for (const unsigned code : row) {
            appendCode(bytes, code);
        }
        const std::size_t width = bytes.size() / row.size();
        for (std::size_t next = 0; next < row.size(); ++next) {
            const std::string_view found = decoded_(std::string_view(bytes).substr(next * width));
            for (std::size_t at = 0; at < found.size(); at += 2) {
                add(row[next++], found.substr(at, 2));
            }
        }
    }

    /// If several codes have the same character, the system knows which one is written.
    void add(unsigned code, std::string_view utf16) {
        const unsigned character = toNumber(utf16);
        characters[code] = static_cast<char16_t>(character);
        codes[character] = static_cast<std::uint16_t>(codes[character] == 0 ? code : toNumber(encoded_(utf16)));
    }
};

const Cp932::Tables& Cp932::tables() {
    static const auto shared = std::make_unique<const Tables>();
    return *shared;
}

Cp932::Cp932() : tables_(tables()) {}

std::string Cp932::encode(const std::string& text) const {
    std::string bytes;
    bytes.reserve(text.size());
    for (const char32_t character : toCharacters(text)) {
        appendCode(bytes, tables_.findCode(character).value_or('?'));
    }
    return bytes;
}

std::string Cp932::decode(const std::string& bytes) const {
    std::u32string characters;
    characters.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        unsigned code = static_cast<unsigned char>(bytes[i]);
        if (isLeadByte(bytes[i]) && i + 1 < bytes.size() && isTrail(static_cast<unsigned char>(bytes[i + 1]))) {
            ++i;
            code = (code << 8U) | static_cast<unsigned char>(bytes[i]);
        }
        const char16_t character = tables_.characters[code];
        characters += character == 0 && code != 0 ? kMiddleDot : char32_t{character};
    }
    return toUtf8(characters);
}

bool Cp932::holds(char32_t character) const { return tables_.findCode(character).has_value(); }

}  // namespace orv
