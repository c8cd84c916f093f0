#include "adapters/text/cp932.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/utf8.h"

namespace orv {
namespace {

struct Pair {
    std::string_view text;
    std::string_view bytes;
};

/// Pairs that convert in both directions.
constexpr auto kThereAndBack = std::to_array<Pair>({
    {"", ""},
    {"Aa ~\\|\r\n\x7F", "Aa ~\\|\r\n\x7F"},
    {"表ソ能", "\x95\x5C\x83\x5C\x94\x5C"},
    {"ｱｶﾞﾟ｡", "\xB1\xB6\xDE\xDF\xA1"},
    {"～－∥￠￡￢", "\x81\x60\x81\x7C\x81\x61\x81\x91\x81\x92\x81\xCA"},
    {"①⑳Ⅰ㌔㈱№℡", "\x87\x40\x87\x53\x87\x54\x87\x60\x87\x8A\x87\x82\x87\x84"},
    {"ⅰ￤＇＂", "\xFA\x40\xFA\x55\xFA\x56\xFA\x57"},
    {"髙﨑纊黑", "\xFB\xFC\xFA\xB1\xFA\x5C\xFC\x4B"},
    {"\uE000\uE757", "\xF0\x40\xF9\xFC"},
    {"\u0080\uF8F0\uF8F1\uF8F2\uF8F3", "\x80\xA0\xFD\xFE\xFF"},
});

TEST(Cp932, GoesThereAndBack) {
    const Cp932 page;
    for (const auto& [text, bytes] : kThereAndBack) {
        EXPECT_EQ(page.encode(std::string(text)), bytes) << text;
        EXPECT_EQ(page.decode(std::string(bytes)), text);
    }
}

TEST(Cp932, WritesOneQuestionMarkForAMissingCharacter) {
    const Cp932 page;
    for (const std::string_view text : {"〜", "−", "¥", "é", "𠮷", "\uE758", "\u00A0", "\xFF"}) {
        EXPECT_EQ(page.encode(std::string(text)), "?") << text;
    }
    EXPECT_EQ(page.encode("\x81あ\xE3\x81"), "?\x82\xA0??");
}

TEST(Cp932, NeverStopsAtBadBytes) {
    const Cp932 page;
    constexpr auto kCases = std::to_array<Pair>({
        {"・", "\x81"},                        // cut inside a character, at the end
        {"ﾟあ", "\xDF\x82\xA0"},               // cut inside a character, at the front
        {"・", "\x81\xAD"},                    // a pair without a character
        {"・ ・\nあ", "\x82 \x82\n\x82\xA0"},  // a blank or a line break is never swallowed
        {"園\u0080", "\x89\x80\x80"},
    });
    for (const auto& [text, bytes] : kCases) EXPECT_EQ(page.decode(std::string(bytes)), text);
}

// 128 characters of ASCII, 63 of half-width katakana, 5 bytes that Windows adds. 6,879 of the standard rows, 74 of the
// first maker's rows, 373 of the second maker's, and 1,880 user-defined.
TEST(Cp932, HoldsOnlyCharactersThatConvertBack) {
    const Cp932 page;
    int held = 0;
    for (char32_t character = 0; character < 0x110000; ++character) {
        if (!page.holds(character)) continue;
        ++held;
        const std::string text = toUtf8(std::u32string(1, character));
        EXPECT_EQ(page.decode(page.encode(text)), text) << std::hex << static_cast<unsigned>(character);
    }
    EXPECT_EQ(held, 128 + 63 + 5 + 6879 + 74 + 373 + 1880);
}

}  // namespace
}  // namespace orv
