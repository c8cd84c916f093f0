#include <gtest/gtest.h>

#include "adapters/postgres/postgres_failure.h"
#include "adapters/text/table_messages.h"
#include "adapters/words/printable.h"

namespace orv {
namespace {

TEST(Words, AForeignTextIsOneLineOfVisibleCharacters) {
    struct Case {
        std::string words, shown;
    };
    for (const Case& row : {
             Case{"髙﨑 ﾃｽﾄ ㈱ 'x' — 𠮷", "髙﨑 ﾃｽﾄ ㈱ 'x' — 𠮷"},
             Case{"a\r\n\tb\x1b[31m\x7f\x07", "a   b [31m  "},
             Case{"\xc2\x9b"
                  "2J\xe2\x80\xae"
                  "cod.exe\xe2\x81\xa6\xe2\x80\x8b\xef\xbb\xbf",
                  " 2J cod.exe   "},
             Case{"\xff", "\uFFFD"},
             Case{std::string(501, 'x'), std::string(500, 'x') + "…"},
         }) {
        EXPECT_EQ(printable(row.words), row.shown);
    }
}

TEST(Words, AStateThatIsNoneIsNotACode) {
    for (const std::string state : {"", "1234", "\x1b[2J,", "23505,\"x\"", "2350５"}) {
        EXPECT_EQ(serverFailure(state, "").code(), "DBXXXXX") << state;
    }
    EXPECT_EQ(serverFailure("23505", "a\nb").code(), "DB23505");
    EXPECT_NE(serverFailure("23505", "a\nb").description().find("（a b）"), std::string::npos);
}

TEST(Words, AFileOfMessagesSaysThemOtherwiseButAsksNotLess) {
    using Kind = Notice::Kind;
    using Buttons = Message::Buttons;
    MessageTable table;
    table.overrideBy(readMessages("IMGMSG01,WARN,OK,消します。\n"
                                  "COS05574,INFO,YESNO,保存済み\n"
                                  "NEW00001,ASK,YESNO,新しい質問\n")
                         .messages);
    EXPECT_EQ(table.messages().at("IMGMSG01"), (Message{Kind::Warning, Buttons::YesNo, "消します。"}));
    EXPECT_EQ(table.messages().at("COS05574"), (Message{Kind::Information, Buttons::Ok, "保存済み"}));
    EXPECT_EQ(table.messages().at("NEW00001"), (Message{Kind::Question, Buttons::YesNo, "新しい質問"}));
}

}  // namespace
}  // namespace orv
