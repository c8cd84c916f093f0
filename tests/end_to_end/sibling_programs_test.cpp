#include <csignal>

#include "end_to_end.h"

namespace ui_driver {
namespace {

constexpr const char* kAddressSearch = "住所検索";
constexpr const char* kRailSearch = "沿線検索";

/// Runs the real search programs next to the real page, by keys.
class SiblingPrograms : public EndToEnd {
protected:
    void openSearch(const std::string& button, const std::string& title) {
        terminal.click(button);
        ASSERT_TRUE(terminal.waitForWindow(title));
    }
    void saveAndAnswer(int page) {
        terminal.click("btm_Save");
        answer(terminal, page);
        EXPECT_EQ(office_->errLog(), "");
    }
    /// Types into the field that has the focus after the search.
    void typeOver(const std::string& text) {
        terminal.key("ctrl+a");
        terminal.typeAscii(text);
    }
    /// Expects the page to accept input at the house number, with the old address.
    void expectUsable(const std::string& number) {
        ASSERT_TRUE(terminal.waitForPage(0));
        terminal.bringToFront();
        typeOver(number);
        saveAndAnswer(0);
        EXPECT_EQ(field("ADDRESS_NUMBER"), number);
        EXPECT_EQ(field("ADDRESS || ADDRESS_CODE || POST_CODE"), "東京都新宿区新宿３丁目13104022003160-0022");
    }

    Terminal terminal = openProgram();
};

TEST_F(SiblingPrograms, AnAddressIsFoundByItsPostCode) {
    openSearch("btm_SearchOfficeAddress", kAddressSearch);
    terminal.typeAscii("150");
    terminal.key("Down");
    terminal.key("Return");
    ASSERT_TRUE(terminal.isWindowGone(kAddressSearch));
    ASSERT_TRUE(terminal.waitForPage(0));
    typeOver("77");
    saveAndAnswer(0);
    EXPECT_EQ(field("POST_CODE || ADDRESS || ADDRESS_CODE || AREA_CODE || ADDRESS_NUMBER"),
              "150-0043東京都渋谷区道玄坂１丁目131130180011311377");
}

TEST_F(SiblingPrograms, ALineAndAStation) {
    turnTo(terminal, 2);
    openSearch("btn_SelectRail", kRailSearch);
    for (int i = 0; i < 8; ++i) {
        terminal.key("Down");
    }
    terminal.key("Return");
    ASSERT_TRUE(terminal.isWindowGone(kRailSearch));
    ASSERT_TRUE(terminal.waitForPage(2));
    typeOver("9");
    saveAndAnswer(2);
    EXPECT_EQ(field("RAILROAD_CODE || RAILROAD_NAME || STATION_CODE || STATION_NAME || WALK_MINUTES"),
              "130102見本環状線002南見本9");
}

TEST_F(SiblingPrograms, OnesThatEndWithoutAChoiceGiveThePageBack) {
    openSearch("btm_SearchOfficeAddress", kAddressSearch);
    ASSERT_TRUE(terminal.waitForPage(0, false));
    terminal.bringToFront();
    terminal.click("txt_Tanto_Name");
    EXPECT_TRUE(eventually([&] { return terminal.frontTitle() == kAddressSearch; })) << terminal.frontTitle();
    ASSERT_TRUE(terminal.waitForWindow(kAddressSearch));
    terminal.typeAscii("150");
    terminal.key("Escape");
    ASSERT_TRUE(terminal.isWindowGone(kAddressSearch));
    expectUsable("88");

    openSearch("btm_SearchOfficeAddress", kAddressSearch);
    kill(terminal.windowProcess(), SIGKILL);
    ASSERT_TRUE(terminal.isWindowGone(kAddressSearch));
    expectUsable("99");
}

TEST_F(SiblingPrograms, OneThatAnswersNoMoreIsLeftByTheCloseBox) {
    openSearch("btm_SearchOfficeAddress", kAddressSearch);
    const int search = terminal.windowProcess();
    kill(search, SIGSTOP);
    ASSERT_TRUE(terminal.waitForPage(0, false));
    terminal.bringToFront();
    terminal.click("btm_Back_Menu");
    terminal.key("alt+F4");
    expectUsable("66");
    EXPECT_TRUE(terminal.running());
    kill(search, SIGCONT);
    EXPECT_TRUE(terminal.isWindowGone(kAddressSearch)) << "it is no longer connected";
}

}  // namespace
}  // namespace ui_driver
