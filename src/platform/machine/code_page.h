#pragma once

#include <string>

namespace orv {

/// The system code page, CP932 as Windows has it, at the edges of a program that holds UTF-8.
class CodePage {
public:
    CodePage() = default;
    CodePage(const CodePage&) = delete;
    CodePage& operator=(const CodePage&) = delete;
    virtual ~CodePage() = default;

    /// UTF-8 to bytes. A character outside the code page, and a byte that is no UTF-8, becomes one "?".
    virtual std::string encode(const std::string& text) const = 0;
    /// Bytes to UTF-8. Never stops: a byte that begins no character becomes U+30FB.
    virtual std::string decode(const std::string& bytes) const = 0;
    /// Whether the code page holds the character.
    virtual bool holds(char32_t character) const = 0;
};

}  // namespace orv
