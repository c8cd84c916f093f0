#pragma once

#include <string>

#include "platform/scope.h"

namespace orv {

/// Converts between UTF-8, used inside the program, and the system code page, CP932 as in Windows.
class CodePage : public Interface {
public:
    /// True for the first byte of a double-byte character.
    static constexpr bool isLeadByte(char c) {
        const auto byte = static_cast<unsigned char>(c);
        return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
    }

    /// Converts UTF-8 to bytes. A character outside the code page, or a byte that is not UTF-8, becomes one "?".
    virtual std::string encode(const std::string& text) const = 0;
    /// Converts bytes to UTF-8 and never fails. A byte that does not begin a character becomes U+30FB.
    virtual std::string decode(const std::string& bytes) const = 0;
    /// True if the code page contains the character.
    virtual bool holds(char32_t character) const = 0;
};

}  // namespace orv
