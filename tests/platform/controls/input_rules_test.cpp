#include "platform/controls/input_rules.h"

#include <array>

#include "platform/utf8.h"
#include "support/form_test.h"

namespace orv {
namespace {

class InputRules : public FormTest {};

struct ClassRow {
    std::string_view sign;
    std::string_view held;
    std::string_view refused;
};

// Each row: what the class holds, and the neighbours that it just does not hold.
constexpr auto kClasses = std::to_array<ClassRow>({
    {"9", "0189", "/:a ０-"},
    {"#", "09!-&(/:@[`{~", "a A'０ア"},
    {"a", "az", "AZ`{1ａ"},
    {"A", "AZ", "az@[1Ａ"},
    {"@", "!&(/:@[`{~-_.", "09aZ' ＠"},
    {"K", "｡ｦｱﾝﾞﾟｰ", "ア。a"},
    {"ａ", "ａｚ", "Ａa"},
    {"Ａ", "ＡＺ", "ａA"},
    {"＃", "０９！＠　（）－、。￥～", "0!ア漢ａ"},
    {"＠", "！＠　（）－、。￥～〒★→", "０@ア漢ａ"},
    {"Ｋ", "ァアンヴヶー・ヽヾ", "ｱあ漢、"},
});

TEST_F(InputRules, ClassesHoldWhatTheyAreNamedFor) {
    for (const ClassRow& row : kClasses) {
        for (const char32_t character : toCharacters(row.held)) {
            EXPECT_TRUE(maskHolds(row.sign, character)) << row.sign << " " << toUtf8({&character, 1});
        }
        for (const char32_t character : toCharacters(row.refused)) {
            EXPECT_FALSE(maskHolds(row.sign, character)) << row.sign << " " << toUtf8({&character, 1});
        }
    }
}

struct EntryRow {
    TextDesign design;
    std::string kept;
    std::string entered;
    std::string admitted;
};

TEST_F(InputRules, WhatIsEnteredIsFilteredAndThenCut) {
    const std::array<EntryRow, 14> rows{{
        {{}, "", "何でもabcｱ ''", "何でもabcｱ ''"},
        {{}, "", "line\r\nbreak\tand\x7f", "linebreakand"},
        {{.mask = "9"}, "", "12-3４a", "123"},
        {{.mask = "aA#@"}, "", "Ab1_' ｱあ", "Ab1_"},
        {{.refuse = "K"}, "", "株式ｶﾌﾞ会社", "株式会社"},
        {{.limit = characters(4)}, "あい", "うえお", "うえ"},
        {{.limit = characters(4)}, "あいうえお", "か", ""},
        {{.limit = bytes(5)}, "", "あいう", "あい"},
        {{.limit = bytes(5)}, "a", "あいう", "あい"},
        {{.limit = bytes(5)}, "", "ｱｲｳｴｵｶ", "ｱｲｳｴｵ"},
        // One character that the code page lacks counts as the one "?" that it is written as.
        {{.limit = bytes(3)}, "", "😀あb", "😀あ"},
        // A refused character takes no room.
        {{.mask = "9", .limit = characters(2)}, "", "a1b2c3", "12"},
        {{.mask = "Ｋ", .ime = Ime::FullKatakana}, "", "ふどうさんｶﾞ漢a", "フドウサンガ"},
        {{.limit = bytes(4), .ime = Ime::FullKatakana}, "", "ﾊﾟﾊﾟ", "パパ"},
    }};
    for (const EntryRow& row : rows) {
        EXPECT_EQ(admit(row.design, row.kept, row.entered), row.admitted) << row.entered;
    }
}

}  // namespace
}  // namespace orv
