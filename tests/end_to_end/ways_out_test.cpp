#include "end_to_end.h"

namespace desk {
namespace {

/// Page, and whether the close box is taken instead of the button.
class WaysOut : public EndToEnd, public ::testing::WithParamInterface<std::tuple<int, bool>> {};

TEST_P(WaysOut, AskedOnceKeptByTheDefaultLeftByYes) {
    const auto [page, closeBox] = GetParam();
    Terminal desk = opened("000004602,1,0");
    if (page != 0) {
        turnTo(desk, page);
    }
    const auto leave = [&, box = closeBox] { box ? desk.key("alt+F4") : desk.click("btm_Back_Menu"); };
    leave();
    answer(desk, page);
    EXPECT_TRUE(desk.running()) << "the default keeps the page";
    EXPECT_EQ(locks(), "000004602 DESK-01");
    EXPECT_EQ(office_->menuStarts(), 0);

    leave();
    leaveByYes(desk);
    EXPECT_TRUE(eventually([&] { return office_->menuStarts() == 1; }));
    EXPECT_EQ(office_->errLog(), "");
}

INSTANTIATE_TEST_SUITE_P(EveryPage, WaysOut, ::testing::Combine(::testing::Range(0, 5), ::testing::Bool()),
                         [](const auto& way) {
                             return "Page" + std::to_string(std::get<0>(way.param)) +
                                    (std::get<1>(way.param) ? "CloseBox" : "Button");
                         });

}  // namespace
}  // namespace desk
