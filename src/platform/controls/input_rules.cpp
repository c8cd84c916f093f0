#include "platform/controls/input_rules.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/machine/code_page.h"
#include "platform/services.h"
#include "platform/utf8.h"

namespace orv {
namespace {

constexpr char32_t kWideToNarrow = 0xFF01 - 0x21;

struct Range {
    char32_t first;
    char32_t last;
};

template <std::size_t N>
bool within(const std::array<Range, N>& ranges, char32_t character) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [character](const Range& range) { return character >= range.first && character <= range.last; });
}

constexpr std::array<Range, 1> kDigits{{{U'0', U'9'}}};
constexpr std::array<Range, 1> kSmallLetters{{{U'a', U'z'}}};
constexpr std::array<Range, 1> kCapitals{{{U'A', U'Z'}}};
// All of ASCII except letters, digits, the blank and the apostrophe.
constexpr std::array<Range, 5> kSymbols{{{U'!', U'&'}, {U'(', U'/'}, {U':', U'@'}, {U'[', U'`'}, {U'{', U'~'}}};
constexpr std::array<Range, 1> kHalfKatakana{{{0xFF61, 0xFF9F}}};
constexpr std::array<Range, 1> kWideDigits{{{U'０', U'９'}}};
constexpr std::array<Range, 1> kWideSmallLetters{{{U'ａ', U'ｚ'}}};
constexpr std::array<Range, 1> kWideCapitals{{{U'Ａ', U'Ｚ'}}};
// Katakana, with ー, ・, ヽ and ヾ.
constexpr std::array<Range, 1> kKatakana{{{0x30A1, 0x30FE}}};
// The ideographic blank, punctuation, wide ASCII symbols, currency signs, and the rows of symbols in the code page.
constexpr std::array<Range, 16> kWideSymbols{{{0x3000, 0x3004},
                                              {0x3006, 0x303F},
                                              {0x30FB, 0x30FC},
                                              {0xFF01, 0xFF0F},
                                              {0xFF1A, 0xFF20},
                                              {0xFF3B, 0xFF40},
                                              {0xFF5B, 0xFF60},
                                              {0xFFE0, 0xFFE6},
                                              {0x2010, 0x203E},
                                              {0x2103, 0x2121},
                                              {0x2190, 0x22FF},
                                              {0x2500, 0x266F},
                                              {0x3200, 0x33FF},
                                              {0x00A7, 0x00A8},
                                              {0x00B0, 0x00B6},
                                              {0x00D7, 0x00F7}}};

bool classHolds(char32_t sign, char32_t character) {
    switch (sign) {
        case U'9':
            return within(kDigits, character);
        case U'#':
            return within(kDigits, character) || within(kSymbols, character);
        case U'a':
            return within(kSmallLetters, character);
        case U'A':
            return within(kCapitals, character);
        case U'@':
            return within(kSymbols, character);
        case U'K':
            return within(kHalfKatakana, character);
        case U'ａ':
            return within(kWideSmallLetters, character);
        case U'Ａ':
            return within(kWideCapitals, character);
        case U'＃':
            return within(kWideDigits, character) || within(kWideSymbols, character);
        case U'＠':
            return within(kWideSymbols, character);
        case U'Ｋ':
            return within(kKatakana, character);
        default:
            return false;
    }
}

bool admitted(const TextDesign& design, char32_t character) {
    const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
    if (control) {
        return false;
    }
    if (!design.mask.empty()) {
        return maskHolds(design.mask, character);
    }
    return !maskHolds(design.refuse, character);
}

// The characters that input methods produce for the hyphen key, and the dashes of other texts.
constexpr std::u32string_view kHyphens = U"\u2010\u2011\u2012\u2013\u2014\u2015\u2212ーｰ";

char32_t toHalfWidthForm(char32_t character) {
    if (kHyphens.find(character) != std::u32string_view::npos) {
        return U'-';
    }
    if (character >= 0xFF01 && character <= 0xFF5E) {
        return character - kWideToNarrow;
    }
    return character == 0x3000 ? U' ' : character;
}

/// Returns the character in the form in which the field accepts it, in half width if the mask requires that. Returns 0
/// if it is rejected.
char32_t acceptedForm(const TextDesign& design, char32_t character) {
    if (admitted(design, character)) {
        return character;
    }
    const char32_t narrow = toHalfWidthForm(character);
    return !design.mask.empty() && admitted(design, narrow) ? narrow : 0;
}

std::size_t countLength(const Limit& limit, const std::u32string& characters) {
    return limit.unit == Limit::Unit::CodePageBytes ? services().codePage->encode(toUtf8(characters)).size()
                                                    : characters.size();
}

constexpr std::u32string_view kHalfOrder =
    U"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリ"
    U"ルレロワン゛゜";
constexpr std::u32string_view kVoiceable = U"カキクケコサシスセソタチツテトハヒフヘホ";
constexpr std::u32string_view kHalfVoiceable = U"ハヒフヘホ";

char32_t voiced(char32_t base, char32_t mark) {
    if (mark == 0xFF9E && base == U'ウ') return U'ヴ';
    if (mark == 0xFF9E && kVoiceable.find(base) != std::u32string_view::npos) return base + 1;
    if (mark == 0xFF9F && kHalfVoiceable.find(base) != std::u32string_view::npos) return base + 2;
    return 0;
}

}  // namespace

bool maskHolds(std::string_view mask, char32_t character) {
    const std::u32string signs = toCharacters(mask);
    return std::any_of(signs.begin(), signs.end(), [character](char32_t sign) { return classHolds(sign, character); });
}

std::string admit(const TextDesign& design, const std::string& kept, const std::string& committed) {
    const std::u32string offered =
        toCharacters(design.ime == Ime::FullKatakana ? toFullKatakana(committed) : committed);
    std::u32string taken;
    for (const char32_t character : offered) {
        if (const char32_t form = acceptedForm(design, character)) {
            taken += form;
        }
    }
    if (design.limit.unit == Limit::Unit::None) {
        return toUtf8(taken);
    }
    std::size_t length = countLength(design.limit, toCharacters(kept));
    std::size_t fitting = 0;
    for (; fitting < taken.size(); ++fitting) {
        length += countLength(design.limit, taken.substr(fitting, 1));
        if (length > design.limit.most) {
            break;
        }
    }
    return toUtf8(std::u32string_view(taken).substr(0, fitting));
}

std::string toFullKatakana(std::string_view text) {
    std::u32string result;
    for (const char32_t character : toCharacters(text)) {
        if (character >= 0x3041 && character <= 0x3096) {
            result += character + 0x60;
        } else if (character == U'ゝ' || character == U'ゞ') {
            result += character + 0x60;
        } else if (within(kHalfKatakana, character)) {
            const char32_t joined = result.empty() ? 0 : voiced(result.back(), character);
            if (joined != 0) {
                result.back() = joined;
            } else {
                result += kHalfOrder[character - 0xFF61];
            }
        } else {
            result += character;
        }
    }
    return toUtf8(result);
}

std::string toHalfWidth(std::string_view text) {
    std::u32string result = toCharacters(text);
    std::transform(result.begin(), result.end(), result.begin(), toHalfWidthForm);
    return toUtf8(result);
}

}  // namespace orv
