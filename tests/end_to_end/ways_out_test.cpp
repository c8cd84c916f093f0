#include "end_to_end.h"

namespace desk {
namespace {

/// Page, and whether the close box is taken instead of the button.
class WaysOut : public EndToEnd, public ::testing::WithParamInterface<std::tuple<int, bool>> {};

TEST_P(WaysOut, AskedOnceKeptByTheDefaultLeftByYes) {
    const auto [page, closeBox] = GetParam();
    Terminal desk = terminal("DESK-01");
    desk.start("000004602,1,0");
    ASSERT_TRUE(desk.waitForPage(0));
    if (page != 0) {
        desk.click("btm_ChangePage", page);
        ASSERT_TRUE(desk.waitForPage(page));
    }
    const auto leave = [&, box = closeBox] { box ? desk.key("alt+F4") : desk.click("btm_Back_Menu"); };
    leave();
    answer(desk, "Return");
    ASSERT_TRUE(desk.noticeGone());
    EXPECT_TRUE(desk.running()) << "the default keeps the page";
    EXPECT_EQ(locks(), "000004602 DESK-01");
    EXPECT_EQ(office_->menuStarts(), 0);

    ASSERT_TRUE(desk.waitForPage(page));
    leave();
    ASSERT_TRUE(desk.waitForNotice());
    desk.key("Left");
    desk.key("Return");
    EXPECT_EQ(desk.waitForEnd(), 0);
    EXPECT_EQ(locks(), "");
    EXPECT_TRUE(eventually([&] { return office_->menuStarts() == 1; }));
    EXPECT_EQ(office_->errLog(), "");
}

INSTANTIATE_TEST_SUITE_P(EveryPage, WaysOut, ::testing::Combine(::testing::Range(0, 5), ::testing::Bool()));

}  // namespace
}  // namespace desk
