#pragma once

#include <string>

#include "platform/machine/code_page.h"

namespace orv {

/// The code page from the system's tables. They are read once, and every call is a look-up.
///
/// If two codes have the same character, encoding uses the one that Windows uses. A character belongs to the code page
/// only if its code decodes to it again, so that none is replaced by a similar one.
///
/// Decoding: the single bytes 0x80, 0xA0 and 0xFD to 0xFF become U+0080, U+F8F0 and U+F8F1 to U+F8F3, as on Windows.
/// They convert back. An undefined pair is one U+30FB. A lead byte without a trail byte is one U+30FB, and the next
/// byte (such as a line break) keeps its meaning.
class Cp932 : public CodePage {
public:
    /// Throws failure 51 if the system does not have the code page.
    Cp932();

    std::string encode(const std::string& text) const override;
    std::string decode(const std::string& bytes) const override;
    bool holds(char32_t character) const override;

private:
    struct Tables;
    static const Tables& tables();

    const Tables& tables_;
};

}  // namespace orv
