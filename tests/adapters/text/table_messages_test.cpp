#include "adapters/text/table_messages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/text/cp932.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr const char* kTablePath = "C:\\ORV\\SYS\\MSG.TBL";

/// Keeps the notice and presses the button that the test has named.
class OneNotice : public WindowSystem {
public:
    void open(Form&) override {}
    void show(Form&) override {}
    void close(Form&) override {}
    void centre(Form&) override {}
    void runModal(Form&) override {}
    void commitComposition() override {}
    void pointer(bool) override {}
    void repaint() override {}

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

/// One file, or none.
class OneFile : public FileSystem {
public:
    bool exists(const std::string&) const override { return content.has_value(); }
    std::uint64_t sizeOf(const std::string&) const override { return 0; }
    bool canOpen(const std::string&) const override { return content.has_value(); }
    void copy(const std::string&, const std::string&) override {}
    void remove(const std::string&) override {}
    void rename(const std::string&, const std::string&) override {}
    void append(const std::string&, const std::string&) override {}
    std::string programFolder() const override { return {}; }
    std::string nativePath(const std::string& path) const override { return path; }

    std::string read(const std::string& path, std::size_t limit) const override {
        ++reads;
        if (path != kTablePath || !content) {
            throw RunTimeError(Failure::FileNotFound);
        }
        if (content->size() > limit) {
            throw RunTimeError(Failure::OutOfMemory);
        }
        return *content;
    }

    std::optional<std::string> content = "; leer\r\n";
    mutable int reads = 0;
};

class TableMessagesTest : public testing::Test {
protected:
    std::string textOf(const std::string& id, const Values& args) {
        EXPECT_TRUE(messages_.ShowMessage(id, args)) << id;
        return windows_.shown.text;
    }

    OneNotice windows_;
    OneFile files_;
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
        {"00000000", {"9", "範囲外です。"}, "エラーが発生しました。\n\n範囲外です。\n\nエラーコード：9"},
        {"UTERR001",
         {"IMGERR:01", "大きすぎます。"},
         "入力項目の処理中にエラーが発生しました。\n\n大きすぎます。\n\nエラーコード：IMGERR:01"},
        {"COSERR01", {"53", ""}, "エラーが発生しました。\n\nエラーコード：53"},
        {"CHECK001", {"今までのパスワード"}, "入力内容を確認してください。\n\n今までのパスワード"},
        {"CHECK002",
         {"新しいパスワード", "新しいパスワードの確認入力", "\r\n"},
         "新しいパスワードが新しいパスワードの確認入力と一致しません。\nもう一度入力してください。"},
        {"CHECK003", {"新しいパスワード", 5, 10}, "新しいパスワードは、半角で5文字以上10文字以内で入力してください。"},
        {"COS63212",
         {"東京が選択されておりますが、\r\n首都圏が選択されておりません。"},
         "東京が選択されておりますが、\n首都圏が選択されておりません。\n\n「はい」を押すと、このままの内容で続けます。"
         "\n"
         "「いいえ」を押すと、入力に戻ります。"},
        {"COS19800", {"免許番号　第"}, "入力内容を確認してください。保存は行っていません。\n\n免許番号　第"},
        {"COS19800",
         {"会社名が未入力です。"},
         "入力内容を確認してください。保存は行っていません。\n\n会社名が未入力です。"},
        {"COS19800", {""}, "入力内容を確認してください。保存は行っていません。"},
        {"COS20003",
         {"000004601"},
         "ユーザＩＤ「000004601」の会社情報は、他の端末で編集中です。\n編集が終わってから、もう一度操作してください。"},
        {"ESSX5050",
         {"、電話番号FAX番号"},
         "次の項目は、登録されている値を表示できないため空欄にしました。\n\n、電話番号FAX番号"},
    });
    for (const auto& [id, args, text] : cases) {
        EXPECT_EQ(textOf(id, args), text);
    }
    EXPECT_TRUE(logged_.empty());
}

TEST_F(TableMessagesTest, AnswersOneForTheButtonThatKeepsThings) {
    struct Case {
        const char* id;
        bool question;
    };
    constexpr auto kCases = std::to_array<Case>({
        {"COSERR01", false},
        {"00000000", false},
        {"UTERR001", false},
        {"CHECK001", false},
        {"CHECK002", false},
        {"CHECK003", false},
        {"COS63212", true},
        {"COS19800", false},
        {"COS20001", true},
        {"COS20002", true},
        {"COS20003", false},
        {"COS05574", false},
        {"ADD00010", true},
        {"ESSX5050", false},
        {"IMGMSG01", true},
        {"NOBODY01", true},
    });
    for (const auto& [id, question] : kCases) {
        const auto answerTo = [this, id = id](std::optional<std::size_t> press) {
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
    EXPECT_EQ(files_.reads, 0);
    files_.content =
        page_.encode("COS05574,WARN,OK,できました,本当に\r\nquatsch\r\n\r\nNEW00001,ASK,YESNO,%1？\r\n!\r\n");
    EXPECT_EQ(textOf("COS05574", {}), "できました,本当に");
    EXPECT_EQ(windows_.shown.kind, Notice::Kind::Warning);
    EXPECT_EQ(textOf("NEW00001", {"何"}), "何？");
    EXPECT_EQ(files_.reads, 1);
    ASSERT_EQ(logged_.size(), 1U);
    EXPECT_EQ(logged_.front(),
              "MSGTBL01 メッセージテーブルに読めない行が2行あります。C:\\ORV\\SYS\\MSG.TBL の2行目から");
}

TEST_F(TableMessagesTest, SpeaksWithoutATable) {
    struct Case {
        std::optional<std::string> content;
        std::string path;
        std::string_view logged;
    };
    const auto cases = std::to_array<Case>({
        {std::nullopt, kTablePath, "53 "},
        {"", "", "53 "},
        {std::string(2 * 1024 * 1024, 'x'), kTablePath, "7 "},
        {std::string(1000, '\x81'), kTablePath, "MSGTBL01 "},
    });
    for (const auto& [content, path, logged] : cases) {
        files_.content = content;
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
    EXPECT_TRUE(messages_.ShowMessage("COS05574", {}));
    EXPECT_EQ(messages_.LastAnswer(), 0);
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

    std::string full;
    for (int i = 0; i < 800; ++i) {
        full += "漢";
    }
    EXPECT_EQ(shown(full), full);
    EXPECT_EQ(shown(full + "字字"), full + "…");
    std::string lines;
    for (int i = 0; i < 100; ++i) {
        lines += "x\r\n";
    }
    const std::string cut = textOf("COS63212", {lines});
    EXPECT_LE(std::ranges::count(cut, '\n'), 20);
    EXPECT_TRUE(cut.ends_with("入力に戻ります。"));
    EXPECT_LT(textOf("NOBODY01", Values(100'000, "値")).size(), 8000U);
}

}  // namespace
}  // namespace orv
