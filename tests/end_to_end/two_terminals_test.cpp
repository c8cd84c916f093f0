#include "end_to_end.h"

namespace desk {
namespace {

using TwoTerminals = EndToEnd;

TEST_F(TwoTerminals, TheSecondIsRefusedAndADeadRunLocksNobodyOut) {
    Terminal first = terminal("DESK-01");
    first.start("000004601,1,0");
    ASSERT_TRUE(first.waitForPage(0));

    Terminal second = terminal("DESK-02");
    second.start("000004601,1,0");
    answer(second, "Return");
    EXPECT_EQ(second.waitForEnd(), 0);
    EXPECT_TRUE(eventually([&] { return office_->menuStarts() == 1; }));
    EXPECT_EQ(office_->errLog(), "") << "a refusal is no failure";
    EXPECT_EQ(locks(), "000004601 DESK-01");

    first.kill();
    EXPECT_EQ(locks(), "000004601 DESK-01") << "a dead run leaves its lock";
    Terminal again = terminal("DESK-01");
    again.start("000004601,1,0");
    ASSERT_TRUE(again.waitForPage(0));
    EXPECT_EQ(locks(), "000004601 DESK-01");
    again.click("btm_Back_Menu");
    ASSERT_TRUE(again.waitForNotice());
    again.key("Left");
    again.key("Return");
    EXPECT_EQ(again.waitForEnd(), 0);
    EXPECT_EQ(locks(), "");
}

}  // namespace
}  // namespace desk
