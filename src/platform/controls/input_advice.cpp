#include "platform/controls/input_advice.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "platform/controls/input_rules.h"
#include "platform/utf8.h"

namespace orv {
namespace {

/// The first class found in the mask decides.
constexpr auto kMaskWords = std::to_array<std::pair<std::string_view, const char*>>({
    {"Ｋ", "カタカナで入力してください。"},
    {"a", "半角の英数字と記号で入力してください。"},
    {"#", "半角の数字と記号で入力してください。"},
    {"9", "半角の数字で入力してください。"},
});

std::string maskAdvice(const TextDesign& design) {
    for (const auto& [sign, words] : kMaskWords) {
        if (design.mask.find(sign) != std::string_view::npos) {
            return words;
        }
    }
    return design.refuse == "K" ? "半角カタカナは使えません。" : "";
}

/// Line breaks and similar characters, which can be pasted, are dropped without a message.
std::size_t countLength(const std::string& text) {
    const std::u32string characters = toCharacters(text);
    return static_cast<std::size_t>(std::count_if(characters.begin(), characters.end(), [](char32_t character) {
        return character >= 0x20 && (character < 0x7F || character >= 0xA0);
    }));
}

/// True if no character was left out. A conversion changes characters, a rejection removes them.
bool acceptsAll(const TextDesign& design, const std::string& kept, const std::string& committed) {
    const std::string offered = design.ime == Ime::FullKatakana ? toFullKatakana(committed) : committed;
    return countLength(admit(design, kept, committed)) == countLength(offered);
}

/// Omits a fraction of zero.
std::string plainNumber(double number) {
    std::array<char, 32> text{};
    const int length = std::snprintf(text.data(), text.size(), "%g", number);
    return {text.data(), static_cast<std::size_t>(length)};
}

}  // namespace

std::string limitAdvice(const TextDesign& design) {
    const std::string most = std::to_string(design.limit.most);
    switch (design.limit.unit) {
        case Limit::Unit::CodePageBytes:
            return "全角" + std::to_string(design.limit.most / 2) + "文字（" + most + "バイト）までです。";
        case Limit::Unit::Characters:
            return most + "文字までです。";
        case Limit::Unit::None:
            break;
    }
    return "";
}

std::string rangeAdvice(const NumberDesign& design) {
    return plainNumber(design.least) + "～" + plainNumber(design.most) + "の数を入力してください。";
}

std::string refusalAdvice(const TextDesign& design, const std::string& kept, const std::string& committed) {
    TextDesign unlimited = design;
    unlimited.limit = {};
    if (!acceptsAll(unlimited, kept, committed)) {
        return maskAdvice(design);
    }
    return acceptsAll(design, kept, committed) ? "" : limitAdvice(design);
}

}  // namespace orv
