#include "adapters/text/string_check.h"

#include <gtest/gtest.h>

#include <map>

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

TEST_F(StringCheckTest, ReplacesCharactersThatStoreOrCodePageCannotHold) {
    constexpr auto kCases = std::to_array<std::pair<std::string_view, std::string_view>>(
        {{"O'Hara''s", "O’Hara’’s"},
         {"〜−‖—", "～－∥―"},
         {"¢£¬¥", "￠￡￢￥"},
         {"10:00–18:00", "10:00－18:00"},
         {"a\u00A0b\u2003c\u2009d", "a b　c d"},
         {"か\u3099き\u3099ゝ\u3099", "がぎゞ"},
         {"ハ\u309Aほ\u309Aウ\u3099", "パぽヴ"},
         {"ｶ\u3099ﾊ\u309A", "ｶﾞﾊﾟ"},
         {"ん\u3099が\u3099か\u309A", "ん゛が゛か゜"},
         {"\u3099", "゛"},
         {"一行目\r\n二行目\t三", "一行目二行目三"},
         {"a\x01\x1F\x7F\u0085\u200B\u200E\u202E\u2067\uFEFF\u00ADb", "ab"},
         {"葛\U000E0100城\uFE00", "葛城"},
         {"⽥中⾼", "田中高"},
         {"あ\xE3\x81い", "あ\uFFFD\uFFFDい"}});
    for (const auto& [input, output] : kCases) {
        EXPECT_EQ(normalized(input), output) << input;
        EXPECT_EQ(normalized(output), output) << "a second time";
    }
}

// Tests every character, alone and between two kana. Clean text is unchanged, cleaning twice changes nothing more, and
// no look-alike is replaced by a character missing in the code page.
TEST_F(StringCheckTest, HoldsForEveryCharacter) {
    for (char32_t character = 0; character < 0x30000; ++character) {
        if (character >= 0xD800 && character < 0xE000) continue;
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

TEST_F(StringCheckTest, NamesTheCharacterThatItRefuses) {
    const struct {
        Check check;
        const char* code;
        std::string_view text, named;
    } refusals[] = {
        {&StringCheck::CheckTextFirst, "STRCHK01", "あ😀é", "「😀」（U+1F600）は"},
        {&StringCheck::CheckTextFirst, "STRCHK01", "a\u200B", "制御文字（U+200B）は"},
        {&StringCheck::CheckTextFirst, "STRCHK01", "\xE3\x81", "（U+FFFD）は"},
        {&StringCheck::CheckTextSecond, "STRCHK02", "O'Hara", "「'」（U+0027）は"},
        {&StringCheck::CheckTextSecond, "STRCHK02", "\u0085", "制御文字（U+0085）は"},
    };
    for (const auto& [check, code, text, named] : refusals) {
        EXPECT_FALSE(passes(check, text)) << text;
        EXPECT_NE(check_.ErrorInfo().text.find(named), std::string::npos) << check_.ErrorInfo().text;
        EXPECT_EQ(check_.ErrorInfo().code, code);
    }
    check_.ClearError();
    EXPECT_TRUE(first("①㈱髙﨑～－∥￠￡￢ｶﾞ\"") && second("％＆＇"));
    EXPECT_EQ(check_.ErrorInfo(), FailureRecord{});
}

TEST_F(StringCheckTest, TakesTelephoneNumbersAndRefusesTheRestWithTextAndCode) {
    for (const char* text :
         {"03-1234-5678", "04992-1-2345", "0312345678", "03-12345678", "031234-5678", "090-1234-5678", "050-1234-5678",
          "060-1234-5678", "070-1234-5678", "0800-123-4567", "0120-123-456", "0120-12-3456", "0570-00-1234"}) {
        EXPECT_TRUE(tel(text)) << text;
    }
    const std::map<std::string, std::vector<const char*>> refused{
        {"", {""}},
        {"TELCHK01", {" ", "03-1234-5678 ", "０３-1234-5678", "03ー1234ー5678", "(03)1234-5678", "+81-3-1234-5678"}},
        {"TELCHK02", {"-", "1234-5678", "81-3-1234-5678", "00-1234-5678"}},
        {"TELCHK03", {"0", "03-1234-567", "03-1234-56789", "090-1234-567", "0800-123-456", "0120-1234-567"}},
        {"TELCHK04", {"03--1234-5678", "-03-1234-5678", "03-123-45678", "03-12-34-5678", "0901-234-5678"}},
    };
    for (const auto& [code, texts] : refused) {
        for (const char* text : texts) {
            check_.ClearError();
            EXPECT_FALSE(tel(text)) << text;
            EXPECT_EQ(check_.ErrorInfo().code, code) << text;
        }
    }
}

}  // namespace
}  // namespace orv
