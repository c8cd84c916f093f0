#include <csignal>

#include "end_to_end.h"

namespace desk {
namespace {

using OpenEditSave = EndToEnd;

TEST_F(OpenEditSave, AChangeOnTwoPagesReachesStoreAndServer) {
    const std::string mailFlag = field("MAIL_FLG");
    Terminal desk = terminal("DESK-01");
    desk.start("000004601,1,0");
    ASSERT_TRUE(desk.waitForPage(0));
    EXPECT_EQ(locks(), "000004601 DESK-01");
    desk.signal(SIGPIPE);  // a pipe that breaks is not the end
    desk.enter("txt_Tanto_Name", "操作　花子");
    for (int page = 1; page < 5; ++page) {
        desk.click("btm_ChangePage", page);
        ASSERT_TRUE(desk.waitForPage(page)) << page;
        if (page == 2) {
            desk.enter("txt_Day_Off", "毎週水曜日");
        }
    }
    desk.click("btm_Save");
    answer(desk, "Return");
    ASSERT_TRUE(desk.noticeGone());
    ASSERT_TRUE(desk.waitForPage(4));
    desk.click("btm_Back_Menu");
    EXPECT_EQ(desk.waitForEnd(), 0);

    EXPECT_EQ(field("TANTO_NAME"), "操作　花子");
    EXPECT_EQ(field("DAY_OFF"), "毎週水曜日");
    EXPECT_EQ(field("PWD_CHG_FLG"), "1");
    EXPECT_EQ(field("SEND_FLAG"), "0");
    EXPECT_EQ(field("MAIL_FLG"), mailFlag);
    EXPECT_EQ(field("PHOTO_FILE1"), "000004601COS00000000_01.jpg");
    EXPECT_EQ(field("PHOTO_FILE2"), "000004601COS00000000_02.jpg");
    EXPECT_EQ(locks(), "");
    EXPECT_EQ(office_->errLog(), "");
    EXPECT_TRUE(eventually([&] { return office_->menuStarts() == 1; }));
    const std::string log = server_->log();
    EXPECT_LT(log.find("_01.jpg"), log.find("_02.jpg")) << log;
    EXPECT_TRUE(contains(log, "/cussend/register")) << log;
    EXPECT_TRUE(sameContent(server_->folder() / "photos/000004601COS00000000_01.jpg",
                            office_->drive() / "ORV/IMG/1/000004601COS00000000_01.jpg"));
}

TEST_F(OpenEditSave, ARefusalTakesTheOperatorToTheFieldAndWritesNothing) {
    Terminal desk = terminal("DESK-01");
    desk.start("000004601,1,0");
    ASSERT_TRUE(desk.waitForPage(0));
    desk.enter("txt_Company_Name", "　");
    desk.click("btm_ChangePage", 3);
    ASSERT_TRUE(desk.waitForPage(3));
    desk.click("btm_Save");
    answer(desk, "Return");
    ASSERT_TRUE(desk.waitForPage(0));
    // The focus is on the field at fault: what is typed goes there.
    desk.key("ctrl+a");
    desk.typeAscii("ABC");
    desk.click("btm_Save");
    answer(desk, "Return");
    ASSERT_TRUE(desk.noticeGone());
    ASSERT_TRUE(desk.waitForPage(0));
    EXPECT_EQ(field("COMPANY_NAME"), "ABC");
}

TEST_F(OpenEditSave, ACompanyWithoutANumberGetsTheServersNumber) {
    for (const std::string table : {"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE"}) {
        office_->change("update " + table + " set USER_ID = '---------' where USER_ID = '000004601'");
    }
    office_->change("update TBL_CUSTOMER_ADD set PHOTO_FILE1 = '', PHOTO_FILE2 = '' where USER_ID = '---------'");
    Terminal desk = terminal("DESK-01");
    desk.start("---------,1,0");
    ASSERT_TRUE(desk.waitForPage(0));
    desk.click("btm_Save");
    answer(desk, "Return");
    ASSERT_TRUE(desk.noticeGone());
    const std::string number = office_->ask("select max(USER_ID) from TBL_CUSTOMER_INFO");
    EXPECT_EQ(number.size(), 9U);
    EXPECT_GT(number, "000004606");
    EXPECT_EQ(office_->ask("select count(*) from TBL_CUSTOMER_ADD where USER_ID = '" + number + "'"), "1");
    EXPECT_EQ(office_->ask("select count(*) from TBL_CUSTOMER_DATE where USER_ID = '" + number + "'"), "1");
    EXPECT_EQ(office_->ask("select count(*) from TBL_CUSTOMER_INFO where USER_ID = '---------'"), "0");
    EXPECT_TRUE(eventually([&] { return locks() == number + " DESK-01"; })) << locks();
}

}  // namespace
}  // namespace desk
