#include "validation/text/conversions.h"

#include <limits>

#include "support/form_test.h"
#include "validation/text/text_helpers.h"

namespace orv {
namespace {

TEST(Blanks, TheRulesCountTheIdeographicBlankToo) {
    for (const char* text : {"", " ", "　", " 　 　"}) EXPECT_TRUE(isBlank(text)) << text;
    for (const char* text : {"a", "　a", "\t", "・", "\xE3\x80"}) EXPECT_FALSE(isBlank(text)) << text;
}

TEST(Conversions, WholeNumbersRoundAHalfToTheEvenNeighbour) {
    struct Case {
        const char* text;
        int number;
    };
    for (const Case& row :
         {Case{"0.5", 0}, Case{"1.5", 2}, Case{"2.5", 2}, Case{"-0.5", 0}, Case{"-1.5", -2}, Case{" +7 ", 7},
          Case{"1e3", 1000}, Case{"2147483647", 2147483647}, Case{"-2147483646", -2147483646}}) {
        EXPECT_EQ(toLong(row.text), row.number) << row.text;
    }
    EXPECT_EQ(toInteger(32767.4), 32767);
}

TEST(Conversions, AnInvalidConversionIsARunTimeFailure) {
    for (const char* text : {"", " ", "abc", "1a", "1 2", "--1", "+-1", "0x10", "inf", "nan", "１", "1,000"}) {
        EXPECT_EQ(catchFailure([&] { return toLong(text); }), 13) << text;
        EXPECT_FALSE(isNumeric(text)) << text;
    }
    EXPECT_EQ(catchFailure([] { return toLong("2147483648"); }), 6);
    EXPECT_EQ(catchFailure([] { return toLong(std::numeric_limits<double>::quiet_NaN()); }), 6);
    EXPECT_EQ(catchFailure([] { return toInteger(32767.5); }), 6);
    EXPECT_EQ(catchFailure([] { return toInteger(-32769); }), 6);
}

TEST(Conversions, Booleans) {
    for (const Value& value : {Value("True"), Value(" TRUE "), Value("1"), Value("-0.1"), Value(2), Value(true)}) {
        EXPECT_TRUE(toBoolean(value)) << toText(value);
    }
    for (const Value& value : {Value("false"), Value("0"), Value(" 0.0"), Value(0), Value(false)}) {
        EXPECT_FALSE(toBoolean(value)) << toText(value);
    }
    for (const Value& value : {Value(""), Value("yes"), Value(Values{})}) {
        EXPECT_EQ(catchFailure([&] { return toBoolean(value); }), 13);
    }
    EXPECT_EQ(catchFailure([] { return toBoolean(Value()); }), 94);
}

using TextBytes = FormTest;

TEST_F(TextBytes, CutsFromEitherEnd) {
    struct Case {
        const char* text;
        int count;
        const char *left, *right;
    };
    for (const Case& row : {Case{"abc", 2, "ab", "bc"}, Case{"亜a亜", 3, "亜a", "a亜"}, Case{"亜", 0, "", ""},
                            Case{"亜", -1, "", ""}, Case{"亜", 99, "亜", "亜"}, Case{"", 1, "", ""}}) {
        EXPECT_EQ(PF_LeftB(row.text, row.count), row.left) << row.text << row.count;
        EXPECT_EQ(PF_RightB(row.text, row.count), row.right) << row.text << row.count;
    }
}

/// 表 is 0x95 0x5C; 0x5C alone is the backslash.
TEST_F(TextBytes, AHalfCharacterIsConvertedUnchanged) {
    EXPECT_EQ(PF_RightB("表", 1), "\\");
    EXPECT_EQ(PF_MidB("表a", 2, 0), "\\a");
    EXPECT_EQ(PF_LenB(PF_LeftB("a表", 2)), 3);
}

}  // namespace
}  // namespace orv
