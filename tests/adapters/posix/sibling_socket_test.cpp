#include "adapters/posix/sibling_fixture.h"

namespace orv {
namespace {

TEST_F(SiblingSocketTest, ObeysLines) {
    const struct {
        std::string line, done, answer;
    } cases[] = {
        {"TEXT 7 東京都 港区", "T7[東京都 港区]", "OK\n"},
        {"TEXT 7", "T7[]", "OK\n"},
        {"TEXT 4294967295  x ", "T4294967295[ x ]", "OK\n"},
        {"TEXT 99 refused", "T99[refused]", "NG\n"},
        {"TEXT 4294967296 x", "", "NG\n"},
        {"TEXT", "", "NG\n"},
        {"KEY 7 256", "", "NG\n"},
        {std::string("\0\xFF TEXT 7 x", 11), "", "NG\n"},
        {"TEXT 7 " + std::string(4089, 'x'), "T7[" + std::string(4089, 'x') + "]", "OK\n"},
    };
    const Client client(start());
    for (const auto& c : cases) {
        happened.clear();
        client.say(c.line + "\n");
        EXPECT_TRUE(waitForAnswer(client, c.answer)) << c.line;
        EXPECT_EQ(happened, c.done) << c.line;
    }
    happened.clear();
    client.say("TEXT 1 \xE6");
    loop.settle();
    client.say("\x9D\xB1\nTEXT 2 b\nKEY 3 13\nTEXT 4 too late\n");
    EXPECT_TRUE(waitFor("T1[東]T2[b]K3,13"));
    loop.settle();
    EXPECT_EQ(happened, "T1[東]T2[b]K3,13") << "the key was the last word";
    EXPECT_TRUE(client.received().ends_with("|"));
}

TEST_F(SiblingSocketTest, AProgramThatEndsIsGoneOnce) {
    const std::string path = start();
    loop.settle();
    EXPECT_EQ(happened, "");
    office.write("end", "");
    EXPECT_TRUE(waitFor("gone")) << "it never spoke";
    loop.settle();
    EXPECT_EQ(happened, "gone");
    EXPECT_EQ(leftovers(), 0);
    EXPECT_FALSE(Client(path).connected());
}

TEST_F(SiblingSocketTest, AnEarlierProgramIsIgnored) {
    const std::string path = start();
    const Client early(path);
    early.say("TEXT 1 a\n");
    EXPECT_TRUE(waitFor("T1[a]"));
    std::filesystem::remove(office.root() + "/path");
    const std::string later = start();
    EXPECT_NE(later, path);
    EXPECT_EQ(leftovers(), 1);
    EXPECT_TRUE(early.received().ends_with("|"));
    EXPECT_FALSE(Client(path).connected());
    const Client now(later);
    now.say("KEY 2 13\n");
    EXPECT_TRUE(waitFor("T1[a]K2,13"));
}

TEST_F(SiblingSocketTest, AFolderThatMeansAnotherPlaceElsewhereIsPassedOver) {
    const Variable relative("XDG_RUNTIME_DIR", ".");
    EXPECT_EQ(start().substr(0, 18), "/tmp/orv-siblings-");
}

}  // namespace
}  // namespace orv
