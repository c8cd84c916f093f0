#include "adapters/text/table_messages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "adapters/text/cp932.h"
#include "platform/run_time_error.h"
#include "sample_folder.h"
#include "support/fake_windows.h"
#include "support/native_files.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

/// Keeps the notice and presses the button that the test has named.
class OneNotice : public NoWindows {
public:
    std::size_t showNotice(const Notice& notice) override {
        if (broken) throw RunTimeError(Failure::ObjectNotSet);
        shown = notice;
        return std::min(press.value_or(notice.escapeButton), notice.buttons.size() - 1);
    }

    bool broken = false;
    /// Empty for Esc or the close box.
    std::optional<std::size_t> press = 0;
    Notice shown;
};

class TableMessagesTest : public testing::Test {
protected:
    TableMessagesTest() { writeFile(path_, "; leer\r\n"); }
    std::string readText(const std::string& id, const Values& args) {
        EXPECT_TRUE(messages_.ShowMessage(id, args)) << id;
        return windows_.shown.text;
    }

    OneNotice windows_;
    TempFolder folder_;
    NativeFiles files_;
    Cp932 page_;
    std::string path_ = folder_.file("MSG.TBL");
    std::vector<std::string> logged_;
    TableMessages messages_{
        windows_, files_, page_, [this] { return path_; },
        [this](const std::string& code, const std::string& text) { logged_.push_back(code + " " + text); }};
};

TEST_F(TableMessagesTest, PutsTheValuesInTheirPlaces) {
    EXPECT_EQ(readText("CHECK003", {"新しいパスワード", 5, 10}),
              "新しいパスワードは、半角で5文字以上10文字以内で入力してください。");
    EXPECT_EQ(readText("COS63212", {"甲\r\n乙"}),
              "甲\n乙\n\n「はい」を押すと、このままの内容で続けます。\n「いいえ」を押すと、入力に戻ります。");
}

TEST_F(TableMessagesTest, AnswersOneForTheButtonThatKeepsThings) {
    const std::set<std::string> questions{"COS63212", "COS20001", "COS20002", "ADD00010", "IMGMSG01", "NOBODY01"};
    Messages all = MessageTable().messages();
    all.try_emplace("NOBODY01");
    EXPECT_EQ(all.size(), 17U);
    for (const auto& [id, message] : all) {
        const bool question = questions.contains(id);
        const auto answerTo = [&](std::optional<std::size_t> press) {
            windows_.press = press;
            EXPECT_TRUE(messages_.ShowMessage(id, {}));
            return messages_.LastAnswer();
        };
        EXPECT_EQ(answerTo(1), question ? 1 : 0) << id;
        EXPECT_EQ(answerTo(0), 0) << id;
        EXPECT_EQ(answerTo(std::nullopt), question ? 1 : 0) << id;
        EXPECT_EQ(windows_.shown.buttons.front(), question ? "はい" : "OK") << id;
        EXPECT_EQ(windows_.shown.defaultButton, question ? 1U : 0U) << id;
    }
}

TEST_F(TableMessagesTest, ReadsTheTableAtTheFirstMessageOnly) {
    writeFile(path_,
              page_.encode("COS05574,WARN,OK,できました,本当に\r\nquatsch\r\n\r\nNEWZ0001,ASK,YESNO,%1？\r\n!\r\n"));
    EXPECT_EQ(readText("COS05574", {}), "できました,本当に");
    EXPECT_EQ(windows_.shown.kind, Notice::Kind::Warning);
    writeFile(path_, "");
    EXPECT_EQ(readText("NEWZ0001", {"何"}), "何？");
    EXPECT_EQ(logged_, std::vector<std::string>{"MSGTBL01 メッセージテーブルに読めない行が2行あります。" + path_ +
                                                " の2行目から"});
}

TEST_F(TableMessagesTest, SpeaksWithoutATable) {
    path_ = folder_.file("none");
    EXPECT_EQ(readText("COS05574", {}), MessageTable().messages().at("COS05574").text);
    ASSERT_EQ(logged_.size(), 1U);
    EXPECT_TRUE(logged_.front().starts_with("53 ")) << logged_.front();
}

TEST_F(TableMessagesTest, FailsOnlyWhenNoWindowCanBeShown) {
    windows_.broken = true;
    EXPECT_FALSE(messages_.ShowMessage("COS05574", {}));
    EXPECT_EQ(messages_.LastAnswer(), 1);
    EXPECT_EQ(messages_.ErrorInfo(), (FailureRecord{"操作の対象がありません。", "91"}));
}

TEST_F(TableMessagesTest, TakesAnyValueAndKeepsItOnTheScreen) {
    const auto shown = [this](Value value) {
        return readText("CHECK001", {std::move(value)}).substr(std::string("入力内容を確認してください。\n\n").size());
    };
    EXPECT_EQ(shown("a\r\nb\rc\nd\te\x01"), "a\nb\nc\nd e");
    EXPECT_EQ(shown("\xFFx"), "\uFFFDx");
    EXPECT_EQ(readText("CHECK001", {Value{}}), "入力内容を確認してください。");

    EXPECT_EQ(shown(std::string(802, 'x')), std::string(800, 'x') + "…");
    const std::string cut = readText("COS63212", {std::string(100, '\n') + "x"});
    EXPECT_LE(std::ranges::count(cut, '\n'), 20);
    EXPECT_TRUE(cut.ends_with("入力に戻ります。"));
}

using Kind = Notice::Kind;
using Buttons = Message::Buttons;

TEST(MessageTable, ReadsALineAMessage) {
    struct Case {
        std::string_view line;
        Message message;
    };
    const auto cases = std::to_array<Case>({
        {"A,WARN,OK,文章\r", {Kind::Warning, Buttons::Ok, "文章"}},
        {" A ,\tERROR , OK ,  文章 \t", {Kind::Critical, Buttons::Ok, "文章"}},
        {"A,ASK,YESNO,a,b,%1", {Kind::Question, Buttons::YesNo, "a,b,%1"}},
        {"A,INFO,OK,一行\\n二行\\\\n\\x\\", {Kind::Information, Buttons::Ok, "一行\n二行\\n\\x\\"}},
        {"A,INFO,OK,前\nA,WARN,OK,後", {Kind::Warning, Buttons::Ok, "後"}},
        {"\n; A,WARN,OK,x\n\r\nA,INFO,OK,文章\n\n", {Kind::Information, Buttons::Ok, "文章"}},
    });
    for (const auto& [line, message] : cases) {
        const MessageFile file = readMessages(line);
        EXPECT_EQ(file.messages, (Messages{{"A", message}})) << line;
        EXPECT_TRUE(file.badLines.empty()) << line;
    }
}

TEST(MessageTable, SkipsABadLineAndReadsOn) {
    const std::string tooLong = "A,INFO,OK," + std::string(4097, 'x');
    for (const std::string& bad :
         std::initializer_list<std::string>{tooLong, "A", "A,INFO,OK", "A,INFO,OK,  ", ",INFO,OK,x", "A,info,OK,x",
                                            "A,INFO,NO,x", "A B,INFO,OK,x", "A1234567890123456,INFO,OK,x", "・"}) {
        const MessageFile file = readMessages("; head\n" + bad + "\nGOOD,INFO,OK,x\n");
        EXPECT_EQ(file.badLines, std::vector<std::size_t>{2}) << bad;
        EXPECT_EQ(file.messages.size(), 1U) << bad;
    }
}

TEST(MessageTable, EqualsTheFileOfTheSampleOffice) {
    const std::string bytes = readFile(kSampleFolder + "/C/ORV/SYS/MSG.TBL");
    const Cp932 page;
    const std::string content = page.decode(bytes);
    EXPECT_EQ(page.encode(content), bytes);
    const MessageFile file = readMessages(content);
    EXPECT_EQ(file.badLines, std::vector<std::size_t>{});
    EXPECT_EQ(file.messages, MessageTable().messages());
}

}  // namespace
}  // namespace orv
