#pragma once

#include <string>

#include "platform/machine/code_page.h"

namespace orv {

/// The code page out of the C library's own tables, read once: every call afterwards is a look-up.
///
/// Where two codes mean one character, encoding takes the one that Windows takes. A character is held only when its
/// code decodes to it again: nothing is written as something that merely looks like it.
///
/// Decoding: the single bytes 0x80, 0xA0 and 0xFD to 0xFF are U+0080, U+F8F0 and U+F8F1 to U+F8F3, as on Windows, so
/// that bytes survive there and back. An undefined pair is one U+30FB. A lead byte without a trail byte is
/// one U+30FB by itself, and what follows it (a line break, say) keeps its meaning.
class Cp932 : public CodePage {
public:
    /// Failure 51 when the C library lacks the code page.
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
