#include "adapters/text/string_check.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

#include "adapters/text/cp932.h"
#include "platform/utf8.h"

namespace orv {
namespace {

struct Cleaned {
    std::string_view input;
    std::string_view output;
};

class StringCheckTest : public testing::Test {
protected:
    std::string normalized(std::string_view input) {
        std::string output = "leftover";
        check_.Normalize(std::string(input), output);
        return output;
    }

    bool first(std::string_view text) {
        bool passes = false;
        check_.CheckTextFirst(std::string(text), passes);
        return passes;
    }

    bool second(std::string_view text) {
        bool passes = false;
        check_.CheckTextSecond(std::string(text), passes);
        return passes;
    }

    bool tel(std::string_view text) {
        bool passes = false;
        check_.CheckTelNumber(std::string(text), passes);
        return passes;
    }

    Cp932 page_;
    StringCheck check_{page_};
};

TEST_F(StringCheckTest, LeavesOrdinaryTextAlone) {
    for (const std::string_view text :
         {"", "株式会社　山田不動産 本店", "ｶﾌﾞｼｷｶﾞｲｼｬ ﾔﾏﾀﾞ", "か゛", "http://www.example.co.jp/~yamada/?a=1&b=\"2\"",
          "yamada@example.co.jp", "C:\\ORV\\IMG\\01.jpg", "①㈱髙﨑～－∥￠￡￢", "  前後の空白　", "-- ; % _ * #"}) {
        EXPECT_EQ(normalized(text), text);
    }
}

TEST_F(StringCheckTest, CleansWhatStoreAndCodePageCannotTake) {
    constexpr auto kCases = std::to_array<Cleaned>({
        {"O'Hara''s", "O’Hara’’s"},
        {"〜−‖—", "～－∥―"},
        {"¢£¬¥", "￠￡￢￥"},
        {"10:00–18:00", "10:00－18:00"},
        {"a\u00A0b\u2003c\u2009d", "a b　c d"},
        {"か\u3099き\u3099ゝ\u3099", "がぎゞ"},
        {"ハ\u309Aヒ\u309Aほ\u309A", "パピぽ"},
        {"ウ\u3099", "ヴ"},
        {"ｶ\u3099ﾊ\u309A", "ｶﾞﾊﾟ"},
        {"ん\u3099が\u3099か\u309A", "ん゛が゛か゜"},
        {"\u3099", "゛"},
        {"か\r\n\u3099", "が"},
        {"一行目\r\n二行目\t三", "一行目二行目三"},
        {"a\x01\x1F\x7F\u0085\u200B\u200E\u202E\u2067\uFEFF\u00ADb", "ab"},
        {"葛\U000E0100城\uFE00", "葛城"},
        {"⽥中⾼", "田中高"},
        {"あ\xE3\x81い", "あ\uFFFD\uFFFDい"},
        {"😀é", "😀é"},
    });
    for (const auto& [input, output] : kCases) {
        EXPECT_EQ(normalized(input), output) << input;
        EXPECT_EQ(normalized(output), output) << "a second time";
    }
    EXPECT_EQ(normalized(std::string_view("a\0b", 3)), "ab");
}

// Every character there is, alone and between two kana: clean text is left as it is, cleaning twice changes nothing
// more, and no look-alike leads to a character that the code page lacks.
TEST_F(StringCheckTest, HoldsForEveryCharacter) {
    for (char32_t character = 0; character < 0x30000; ++character) {
        if (character >= 0xD800 && character < 0xE000) {
            continue;
        }
        const std::string text = toUtf8(std::u32string{U'は', character, U'ﾊ', character});
        const std::string once = normalized(text);
        ASSERT_EQ(normalized(once), once) << text;
        ASSERT_TRUE(second(once)) << text;
        if (page_.holds(character) && second(text) && character != 0xA0) {
            ASSERT_EQ(once, text);
        } else if (once != text && character - 0x2F00 >= 214) {
            ASSERT_TRUE(first(once)) << text;
        }
    }
}

TEST_F(StringCheckTest, PassesWhatClerksType) {
    for (const std::string_view text : {"", "ｶﾌﾞｼｷｶﾞｲｼｬ", "\"引用\"", "http://www.example.co.jp/", "a@b.jp", "①㈱髙﨑",
                                        "～－∥￠￡￢", "　", "％＆＇"}) {
        EXPECT_TRUE(first(text)) << text;
        EXPECT_TRUE(second(text)) << text;
    }
    EXPECT_EQ(check_.ErrorInfo(), FailureRecord{});
}

struct Refused {
    std::string_view text;
    std::string_view named;
};

TEST_F(StringCheckTest, NamesTheCharacterThatTheCodePageLacks) {
    constexpr auto kCases = std::to_array<Refused>({
        {"カフェé", "「é」（U+00E9）は"},
        {"あ😀é", "「😀」（U+1F600）は"},
        {"𠮷野家", "「𠮷」（U+20BB7）は"},
        {"〜", "「〜」（U+301C）は"},
        {"か\u3099", "（U+3099）は"},
        {"a\u200B", "制御文字（U+200B）は"},
        {"\xE3\x81", "（U+FFFD）は"},
    });
    for (const auto& [text, named] : kCases) {
        check_.ClearError();
        EXPECT_FALSE(first(text)) << text;
        EXPECT_NE(check_.ErrorInfo().text.find(named), std::string::npos) << check_.ErrorInfo().text;
        EXPECT_EQ(check_.ErrorInfo().code, "STRCHK01");
    }
}

TEST_F(StringCheckTest, NamesTheCharacterThatBreaksStoreOrWire) {
    constexpr auto kCases = std::to_array<Refused>({
        {"O'Hara", "「'」（U+0027）は"},
        {"a\tb'", "制御文字（U+0009）は"},
        {"a\r\n", "制御文字（U+000D）は"},
        {"\x7F", "制御文字（U+007F）は"},
        {"\u0085", "制御文字（U+0085）は"},
        {"\u202E", "制御文字（U+202E）は"},
        {"\uFEFF", "制御文字（U+FEFF）は"},
    });
    for (const auto& [text, named] : kCases) {
        check_.ClearError();
        EXPECT_FALSE(second(text)) << text;
        EXPECT_NE(check_.ErrorInfo().text.find(named), std::string::npos) << check_.ErrorInfo().text;
        EXPECT_EQ(check_.ErrorInfo().code, "STRCHK02");
    }
    EXPECT_FALSE(second(std::string_view("a\0b", 3)));
}

TEST_F(StringCheckTest, AcceptsTelephoneNumbers) {
    for (const std::string_view text :
         {"03-1234-5678",  "045-123-4567",  "0463-12-3456",  "04992-1-2345",  "0312345678",
          "03-12345678",   "031234-5678",   "090-1234-5678", "09012345678",   "050-1234-5678",
          "060-1234-5678", "070-1234-5678", "080-1234-5678", "0800-123-4567", "08001234567",
          "0120-123-456",  "0120-12-3456",  "0120123456",    "0570-064-000",  "0570-00-1234"}) {
        EXPECT_TRUE(tel(text)) << text;
    }
    EXPECT_EQ(check_.ErrorInfo(), FailureRecord{});
}

TEST_F(StringCheckTest, RefusesOtherTelephoneNumbersWithTextAndCode) {
    struct Case {
        std::string_view text;
        std::string_view code;
    };
    constexpr auto kCases = std::to_array<Case>({
        {"", ""},
        {" ", "TELCHK01"},
        {"03-1234-5678 ", "TELCHK01"},
        {"０３-1234-5678", "TELCHK01"},
        {"03ー1234ー5678", "TELCHK01"},
        {"(03)1234-5678", "TELCHK01"},
        {"+81-3-1234-5678", "TELCHK01"},
        {"-", "TELCHK02"},
        {"1234-5678", "TELCHK02"},
        {"81-3-1234-5678", "TELCHK02"},
        {"00-1234-5678", "TELCHK02"},
        {"0", "TELCHK03"},
        {"03-1234-567", "TELCHK03"},
        {"03-1234-56789", "TELCHK03"},
        {"090-1234-567", "TELCHK03"},
        {"0800-123-456", "TELCHK03"},
        {"0120-1234-567", "TELCHK03"},
        {"03--1234-5678", "TELCHK04"},
        {"-03-1234-5678", "TELCHK04"},
        {"03-1234-5678-", "TELCHK04"},
        {"03-123-45678", "TELCHK04"},
        {"0-312-345-678", "TELCHK04"},
        {"03-12-34-5678", "TELCHK04"},
        {"0901-234-5678", "TELCHK04"},
        {"0120-1-23456", "TELCHK04"},
    });
    for (const auto& [text, code] : kCases) {
        check_.ClearError();
        EXPECT_FALSE(tel(text)) << text;
        EXPECT_EQ(check_.ErrorInfo().code, code) << text;
        EXPECT_FALSE(check_.ErrorInfo().text.empty()) << text;
    }
    EXPECT_FALSE(tel(std::string(100'000, '-')));
    EXPECT_FALSE(tel("0" + std::string(100'000, '1')));
}

TEST_F(StringCheckTest, KeepsTheLastRejectionUntilItIsCleared) {
    EXPECT_FALSE(tel("x"));
    EXPECT_FALSE(second("'"));
    EXPECT_TRUE(first("あ"));
    EXPECT_EQ(check_.ErrorInfo().code, "STRCHK02");
    check_.ClearError();
    EXPECT_EQ(check_.ErrorInfo(), FailureRecord{});
}

}  // namespace
}  // namespace orv
