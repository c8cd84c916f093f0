#include "adapters/text/table_messages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/text/cp932.h"
#include "platform/run_time_error.h"
#include "support/memory_machine.h"
#include "support/no_windows.h"

namespace orv {
namespace {

constexpr const char* kTablePath = "C:\\ORV\\SYS\\MSG.TBL";

/// Keeps the notice and presses the button that the test has named.
class OneNotice : public NoWindows {
public:
    std::size_t showNotice(const Notice& notice) override {
        if (broken) {
            throw RunTimeError(Failure::ObjectNotSet);
        }
        shown = notice;
        return std::min(press.value_or(notice.escapeButton), notice.buttons.size() - 1);
    }

    bool broken = false;
    /// Nothing: Esc or the close box.
    std::optional<std::size_t> press = 0;
    Notice shown;
};

class TableMessagesTest : public testing::Test {
protected:
    TableMessagesTest() { files_.put(kTablePath, "; leer\r\n"); }
    std::string textOf(const std::string& id, const Values& args) {
        EXPECT_TRUE(messages_.ShowMessage(id, args)) << id;
        return windows_.shown.text;
    }

    OneNotice windows_;
    MemoryFiles files_;
    Cp932 page_;
    std::string path_ = kTablePath;
    std::vector<std::string> logged_;
    TableMessages messages_{
        windows_, files_, page_, [this] { return path_; },
        [this](const std::string& code, const std::string& text) { logged_.push_back(code + " " + text); }};
};

TEST_F(TableMessagesTest, SaysEachMessageWithItsValues) {
    struct Case {
        const char* id;
        Values args;
        std::string_view text;
    };
    const auto cases = std::to_array<Case>({
        {"COSERR01", {"53", "[ PF_X ] なし。"}, "エラーが発生しました。\n\n[ PF_X ] なし。\n\nエラーコード：53"},
        {"COSERR01", {"53", ""}, "エラーが発生しました。\n\nエラーコード：53"},
        {"CHECK002",
         {"新しいパスワード", "新しいパスワードの確認入力", "\r\n"},
         "新しいパスワードが新しいパスワードの確認入力と一致しません。\nもう一度入力してください。"},
        {"CHECK003", {"新しいパスワード", 5, 10}, "新しいパスワードは、半角で5文字以上10文字以内で入力してください。"},
        {"COS63212",
         {"甲\r\n乙"},
         "甲\n乙\n\n「はい」を押すと、このままの内容で続けます。\n「いいえ」を押すと、入力に戻ります。"},
        {"COS19800", {"免許番号　第"}, "入力内容を確認してください。保存は行っていません。\n\n免許番号　第"},
    });
    for (const auto& [id, args, text] : cases) {
        EXPECT_EQ(textOf(id, args), text);
    }
}

TEST_F(TableMessagesTest, AnswersOneForTheButtonThatKeepsThings) {
    const std::set<std::string> questions{"COS63212", "COS20001", "COS20002", "ADD00010", "IMGMSG01", "NOBODY01"};
    Messages all = MessageTable().messages();
    all.try_emplace("NOBODY01");
    EXPECT_EQ(all.size(), 16U);
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
    files_.put(kTablePath,
               page_.encode("COS05574,WARN,OK,できました,本当に\r\nquatsch\r\n\r\nNEW00001,ASK,YESNO,%1？\r\n!\r\n"));
    EXPECT_EQ(textOf("COS05574", {}), "できました,本当に");
    EXPECT_EQ(windows_.shown.kind, Notice::Kind::Warning);
    files_.put(kTablePath, "");
    EXPECT_EQ(textOf("NEW00001", {"何"}), "何？");
    EXPECT_EQ(logged_, std::vector<std::string>{"MSGTBL01 メッセージテーブルに読めない行が2行あります。"
                                                "C:\\ORV\\SYS\\MSG.TBL の2行目から"});
}

TEST_F(TableMessagesTest, SpeaksWithoutATable) {
    path_ = "none";
    EXPECT_EQ(textOf("COS05574", {}), MessageTable().messages().at("COS05574").text);
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
        return textOf("CHECK001", {std::move(value)}).substr(std::string("入力内容を確認してください。\n\n").size());
    };
    EXPECT_EQ(shown("a\r\nb\rc\nd\te\x01"), "a\nb\nc\nd e");
    EXPECT_EQ(shown("\xFFx"), "\uFFFDx");
    EXPECT_EQ(textOf("CHECK001", {Value{}}), "入力内容を確認してください。");

    EXPECT_EQ(shown(std::string(802, 'x')), std::string(800, 'x') + "…");
    const std::string cut = textOf("COS63212", {std::string(100, '\n') + "x"});
    EXPECT_LE(std::ranges::count(cut, '\n'), 20);
    EXPECT_TRUE(cut.ends_with("入力に戻ります。"));
}

}  // namespace
}  // namespace orv
