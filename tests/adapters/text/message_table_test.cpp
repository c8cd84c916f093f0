#include "adapters/text/message_table.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/text/cp932.h"
#include "support/temp_folder.h"

namespace orv {
namespace {

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

TEST(MessageTable, LetsAFileSayItOtherwiseButNotAskLess) {
    MessageTable table;
    table.overrideBy(readMessages("IMGMSG01,WARN,OK,消します。\n"
                                  "COS05574,INFO,YESNO,保存済み\n"
                                  "NEW00001,ASK,YESNO,新しい質問\n")
                         .messages);
    EXPECT_EQ(table.messages().at("IMGMSG01"), (Message{Kind::Warning, Buttons::YesNo, "消します。"}));
    EXPECT_EQ(table.messages().at("COS05574"), (Message{Kind::Information, Buttons::Ok, "保存済み"}));
    EXPECT_EQ(table.messages().at("NEW00001"), (Message{Kind::Question, Buttons::YesNo, "新しい質問"}));
}

TEST(MessageTable, IsWhatTheSampleOfficeShips) {
    const std::string bytes = readFile(SAMPLE_FOLDER "/C/ORV/SYS/MSG.TBL");
    const Cp932 page;
    const std::string content = page.decode(bytes);
    EXPECT_EQ(page.encode(content), bytes);
    const MessageFile file = readMessages(content);
    EXPECT_EQ(file.badLines, std::vector<std::size_t>{});
    EXPECT_EQ(file.messages, MessageTable().messages());
}

}  // namespace
}  // namespace orv
