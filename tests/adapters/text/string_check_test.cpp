#include "adapters/text/string_check.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/text/cp932.h"
#include "platform/utf8.h"

namespace orv {
namespace {

class StringCheckTest : public testing::Test {
protected:
    std::string normalized(std::string_view input) {
        std::string output = "leftover";
        check_.Normalize(std::string(input), output);
        return output;
    }

    using Check = void (StringCheck::*)(const std::string& text, bool& passes);
    bool passes(Check check, std::string_view text) {
        bool result = false;
        (check_.*check)(std::string(text), result);
        return result;
    }
    bool first(std::string_view text) { return passes(&StringCheck::CheckTextFirst, text); }
    bool second(std::string_view text) { return passes(&StringCheck::CheckTextSecond, text); }
    bool tel(std::string_view text) { return passes(&StringCheck::CheckTelNumber, text); }

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
    constexpr auto kCases = std::to_array<std::pair<std::string_view, std::string_view>>({
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

TEST_F(StringCheckTest, NamesTheCharacterThatItRefuses) {
    struct Refusal {
        Check check;
        const char* code;
        std::vector<std::pair<std::string_view, std::string>> texts;
    };
    const auto refusals = std::to_array<Refusal>({
        {&StringCheck::CheckTextFirst,
         "STRCHK01",
         {{"カフェé", "「é」（U+00E9）"},
          {"あ😀é", "「😀」（U+1F600）"},
          {"〜", "「〜」（U+301C）"},
          {"か\u3099", "（U+3099）"},
          {"a\u200B", "制御文字（U+200B）"},
          {"\xE3\x81", "（U+FFFD）"}}},
        {&StringCheck::CheckTextSecond,
         "STRCHK02",
         {{"O'Hara", "「'」（U+0027）"},
          {"a\tb'", "制御文字（U+0009）"},
          {"a\r\n", "制御文字（U+000D）"},
          {"\x7F", "制御文字（U+007F）"},
          {"\u0085", "制御文字（U+0085）"},
          {{"a\0b", 3}, "制御文字（U+0000）"}}},
    });
    for (const auto& [check, code, texts] : refusals) {
        for (const auto& [text, named] : texts) {
            check_.ClearError();
            EXPECT_FALSE(passes(check, text)) << text;
            EXPECT_NE(check_.ErrorInfo().text.find(named + "は"), std::string::npos) << check_.ErrorInfo().text;
            EXPECT_EQ(check_.ErrorInfo().code, code);
        }
    }
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
    const std::map<std::string, std::vector<const char*>> refused{
        {"", {""}},
        {"TELCHK01", {" ", "03-1234-5678 ", "０３-1234-5678", "03ー1234ー5678", "(03)1234-5678", "+81-3-1234-5678"}},
        {"TELCHK02", {"-", "1234-5678", "81-3-1234-5678", "00-1234-5678"}},
        {"TELCHK03", {"0", "03-1234-567", "03-1234-56789", "090-1234-567", "0800-123-456", "0120-1234-567"}},
        {"TELCHK04",
         {"03--1234-5678", "-03-1234-5678", "03-1234-5678-", "03-123-45678", "0-312-345-678", "03-12-34-5678",
          "0901-234-5678", "0120-1-23456"}},
    };
    for (const auto& [code, texts] : refused) {
        for (const char* text : texts) {
            check_.ClearError();
            EXPECT_FALSE(tel(text)) << text;
            EXPECT_EQ(check_.ErrorInfo().code, code) << text;
            EXPECT_FALSE(check_.ErrorInfo().text.empty()) << text;
        }
    }
    EXPECT_FALSE(tel(std::string(100'000, '-')));
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
