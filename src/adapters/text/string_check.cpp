#include "adapters/text/string_check.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <utility>

#include "adapters/text/look_alikes.h"
#include "platform/utf8.h"

namespace orv {
namespace {

/// A kind of number: its first digits, its length, and the digits after which its two hyphens can be.
struct TelForm {
    std::string_view prefix;
    std::size_t digits;
    std::string_view firstHyphen;
    std::string_view secondHyphen;
};

/// The first row with a matching prefix decides. An area code has two to five digits, and six together with the
/// exchange.
constexpr auto kForms = std::to_array<TelForm>({
    {"0120", 10, "4", "678"},
    {"0570", 10, "4", "678"},
    {"0800", 11, "4", "7"},
    {"050", 11, "3", "7"},
    {"060", 11, "3", "7"},
    {"070", 11, "3", "7"},
    {"080", 11, "3", "7"},
    {"090", 11, "3", "7"},
    {"0", 10, "2345", "6"},
});

struct Parts {
    std::string digits;
    /// The number of digits before each hyphen, as one digit. Ten or more become a colon, which no form allows.
    std::string hyphens;
};

Parts splitNumber(std::string_view text) {
    Parts parts;
    for (const char character : text) {
        if (character == '-') {
            parts.hyphens += static_cast<char>('0' + std::min<std::size_t>(parts.digits.size(), 10));
        } else {
            parts.digits += character;
        }
    }
    return parts;
}

bool isAllowed(std::string_view hyphens, const TelForm& form) {
    if (!hyphens.empty() && form.firstHyphen.find(hyphens.front()) != std::string_view::npos) {
        hyphens.remove_prefix(1);
    }
    if (!hyphens.empty() && form.secondHyphen.find(hyphens.front()) != std::string_view::npos) {
        hyphens.remove_prefix(1);
    }
    return hyphens.empty();
}

struct Range {
    char32_t first;
    char32_t last;
};

/// Characters without a shape. They are invisible in a field, and can end a line or reverse the text after them in a
/// statement, log or document.
constexpr auto kInvisible = std::to_array<Range>({
    {0x0000, 0x001F},    // controls
    {0x007F, 0x009F},    // delete and the second set of controls
    {0x00AD, 0x00AD},    // soft hyphen
    {0x034F, 0x034F},    // grapheme joiner
    {0x061C, 0x061C},    // direction mark
    {0x180E, 0x180E},    // vowel separator
    {0x200B, 0x200F},    // zero-width characters, direction marks
    {0x2028, 0x202E},    // line and paragraph separators, directions
    {0x2060, 0x206F},    // word joiner, directions
    {0xFE00, 0xFE0F},    // variants of the character before
    {0xFEFF, 0xFEFF},    // byte order mark
    {0xFFF9, 0xFFFB},    // ruby
    {0xFFFE, 0xFFFF},    // no characters
    {0xE0000, 0xE0FFF},  // tags, variants of the ideograph before
});

bool isInvisible(char32_t character) {
    return std::ranges::any_of(kInvisible,
                               [=](const Range& range) { return character >= range.first && character <= range.last; });
}

/// Returns the character and its number, or the number alone, so that the operator can find it.
std::string describe(char32_t character) {
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "U+%04X", static_cast<unsigned>(character));
    if (isInvisible(character)) {
        return std::string("制御文字（") + number.data() + "）";
    }
    return "「" + toUtf8({&character, 1}) + "」（" + number.data() + "）";
}

/// Returns the record for the first rejected character, if any.
template <class Refused>
FailureRecord checkText(const std::string& text, const char* code, Refused refused) {
    const std::u32string characters = toCharacters(text);
    const auto found = std::ranges::find_if(characters, refused);
    if (found == characters.end()) {
        return {};
    }
    return {describe(*found) + "は使用できない文字です。入力し直してください。", code};
}

FailureRecord describeFault(TelFault fault) {
    switch (fault) {
        case TelFault::Empty:
            return {"電話・FAX番号が入力されていません。", ""};
        case TelFault::Characters:
            return {"電話・FAX番号は半角の数字とハイフンで入力してください。", "TELCHK01"};
        case TelFault::Leading:
            return {"電話・FAX番号は0で始まる市外局番から入力してください。", "TELCHK02"};
        case TelFault::Digits:
            return {"電話・FAX番号の桁数が正しくありません。", "TELCHK03"};
        case TelFault::Hyphens:
            return {"電話・FAX番号のハイフンの位置が正しくありません。", "TELCHK04"};
        case TelFault::None:
            break;
    }
    return {};
}

/// Keeps a rejection. True if there is none.
bool passed(FailureRecord verdict, FailureRecord& rejection) {
    if (verdict.text.empty()) {
        return true;
    }
    rejection = std::move(verdict);
    return false;
}

void appendMark(std::u32string& text, char32_t mark) {
    const char32_t kana = text.empty() ? 0 : text.back();
    if (const char32_t joined = voiced(kana, mark); joined != 0) {
        text.back() = joined;
    } else {
        text += spacingMark(kana, mark);
    }
}

}  // namespace

TelFault findTelFault(std::string_view text) {
    if (text.empty()) {
        return TelFault::Empty;
    }
    if (text.find_first_not_of("0123456789-") != std::string_view::npos) {
        return TelFault::Characters;
    }
    const Parts parts = splitNumber(text);
    if (!parts.digits.starts_with('0') || parts.digits.starts_with("00")) {
        return TelFault::Leading;
    }
    const auto* form =
        std::ranges::find_if(kForms, [&](const TelForm& row) { return parts.digits.starts_with(row.prefix); });
    if (parts.digits.size() != form->digits) {
        return TelFault::Digits;
    }
    return isAllowed(parts.hyphens, *form) ? TelFault::None : TelFault::Hyphens;
}

void StringCheck::Normalize(const std::string& input, std::string& output) {
    std::u32string cleaned;
    for (const char32_t character : toCharacters(input)) {
        if (isInvisible(character)) {
            continue;
        }
        if (isVoiceMark(character)) {
            appendMark(cleaned, character);
        } else {
            cleaned += replaceLookAlike(character);
        }
    }
    output = toUtf8(cleaned);
}

void StringCheck::CheckTextFirst(const std::string& text, bool& passes) {
    const auto unheld = [this](char32_t character) { return !codePage_.holds(character); };
    passes = passed(checkText(text, "STRCHK01", unheld), rejection_);
}

void StringCheck::CheckTextSecond(const std::string& text, bool& passes) {
    const auto breaking = [](char32_t character) { return character == U'\'' || isInvisible(character); };
    passes = passed(checkText(text, "STRCHK02", breaking), rejection_);
}

void StringCheck::CheckTelNumber(const std::string& text, bool& passes) {
    passes = passed(describeFault(findTelFault(text)), rejection_);
}

}  // namespace orv
