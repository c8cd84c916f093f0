#include "adapters/text/table_messages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/text/cp932.h"
#include "platform/run_time_error.h"
#include "support/memory_files.h"
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
         {"東京が選択されておりますが、\r\n首都圏が選択されておりません。"},
         "東京が選択されておりますが、\n首都圏が選択されておりません。\n\n「はい」を押すと、このままの内容で続けます。"
         "\n「いいえ」を押すと、入力に戻ります。"},
        {"COS19800", {"免許番号　第"}, "入力内容を確認してください。保存は行っていません。\n\n免許番号　第"},
        {"COS19800", {""}, "入力内容を確認してください。保存は行っていません。"},
    });
    for (const auto& [id, args, text] : cases) {
        EXPECT_EQ(textOf(id, args), text);
    }
    EXPECT_TRUE(logged_.empty());
}

TEST_F(TableMessagesTest, AnswersOneForTheButtonThatKeepsThings) {
    const std::set<std::string> questions{"COS63212", "COS20001", "COS20002", "ADD00010", "IMGMSG01", "NOBODY01"};
    std::set<std::string> ids{"NOBODY01"};
    const MessageTable table;
    for (const auto& [id, message] : table.messages()) {
        ids.insert(id);
    }
    EXPECT_EQ(ids.size(), 16U);
    for (const std::string& id : ids) {
        const bool question = questions.contains(id);
        const auto answerTo = [&](std::optional<std::size_t> press) {
            windows_.press = press;
            EXPECT_TRUE(messages_.ShowMessage(id, {}));
            return messages_.LastAnswer();
        };
        EXPECT_EQ(answerTo(1), question ? 1 : 0) << id;
        EXPECT_EQ(answerTo(0), 0) << id;
        EXPECT_EQ(answerTo(std::nullopt), question ? 1 : 0) << id;
        const std::vector<std::string> yesNo{"はい", "いいえ"};
        EXPECT_EQ(windows_.shown.buttons, question ? yesNo : std::vector<std::string>{"OK"}) << id;
        EXPECT_EQ(windows_.shown.defaultButton, question ? 1U : 0U) << id;
        EXPECT_EQ(windows_.shown.escapeButton, question ? 1U : 0U) << id;
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
    files_.put("large", std::string(2 * 1024 * 1024, 'x'));
    files_.put("bad", std::string(1000, '\x81'));
    for (const auto& [path, logged] :
         std::map<std::string, std::string>{{"none", "53 "}, {"", "53 "}, {"large", "7 "}, {"bad", "MSGTBL01 "}}) {
        std::vector<std::string> log;
        TableMessages messages(
            windows_, files_, page_, [&path = path] { return path; },
            [&log](const std::string& code, const std::string& text) { log.push_back(code + " " + text); });
        EXPECT_TRUE(messages.ShowMessage("COS05574", {}));
        EXPECT_EQ(windows_.shown.text, MessageTable().messages().at("COS05574").text);
        ASSERT_EQ(log.size(), 1U);
        EXPECT_TRUE(log.front().starts_with(logged)) << log.front();
    }
}

TEST_F(TableMessagesTest, AsksAboutAnUnknownIdAndLogsIt) {
    windows_.press = 1;
    const std::string text = textOf("NOBODY01", {"値", 7, Value{}});
    EXPECT_NE(text.find("（NOBODY01）"), std::string::npos);
    EXPECT_NE(text.find("値\n7\n"), std::string::npos);
    EXPECT_EQ(messages_.LastAnswer(), 1);
    ASSERT_EQ(logged_.size(), 1U);
    EXPECT_TRUE(logged_.front().starts_with("NOBODY01 "));
}

TEST_F(TableMessagesTest, FailsOnlyWhenNoWindowCanBeShown) {
    windows_.broken = true;
    EXPECT_FALSE(messages_.ShowMessage("COS05574", {}));
    EXPECT_EQ(messages_.LastAnswer(), 1);
    EXPECT_EQ(messages_.ErrorInfo(), (FailureRecord{"操作の対象がありません。", "91"}));
    windows_.broken = false;
    EXPECT_TRUE(messages_.ShowMessage("COS05574", {}));
    EXPECT_EQ(messages_.LastAnswer(), 0);
    EXPECT_EQ(messages_.ErrorInfo(), FailureRecord{});
}

TEST_F(TableMessagesTest, TakesAnyValueAndKeepsItOnTheScreen) {
    const auto shown = [this](Value value) {
        return textOf("CHECK001", {std::move(value)}).substr(std::string("入力内容を確認してください。\n\n").size());
    };
    EXPECT_EQ(shown("a\r\nb\rc\nd\te\x01"), "a\nb\nc\nd e");
    EXPECT_EQ(shown(2.5), "2.5");
    EXPECT_EQ(shown(true), "True");
    EXPECT_EQ(shown("\xFFx"), "\uFFFDx");
    EXPECT_EQ(textOf("CHECK001", {Value{}}), "入力内容を確認してください。");
    EXPECT_EQ(textOf("CHECK001", Values(1, Value(Values{"a"}))), "入力内容を確認してください。");

    const auto repeated = [](std::size_t times, const std::string& text) {
        std::string all;
        for (std::size_t i = 0; i < times; ++i) {
            all += text;
        }
        return all;
    };
    EXPECT_EQ(shown(repeated(800, "漢")), repeated(800, "漢"));
    EXPECT_EQ(shown(repeated(802, "漢")), repeated(800, "漢") + "…");
    const std::string cut = textOf("COS63212", {repeated(100, "x\r\n")});
    EXPECT_LE(std::ranges::count(cut, '\n'), 20);
    EXPECT_TRUE(cut.ends_with("入力に戻ります。"));
    EXPECT_LT(textOf("NOBODY01", Values(100'000, "値")).size(), 8000U);
}

}  // namespace
}  // namespace orv
