#include <csignal>
#include <thread>

#include "end_to_end.h"

namespace desk {
namespace {

/// Something goes wrong while a company is open, and the operator goes on working.
class BrokenSave : public EndToEnd {
protected:
    Terminal opened() {
        Terminal desk = terminal("DESK-01");
        desk.start("000004601,1,0");
        EXPECT_TRUE(desk.waitForPage(0));
        return desk;
    }
};

void editAndSave(Terminal& desk, const std::string& name) {
    desk.enter("txt_Tanto_Name", name);
    desk.click("btm_Save");
    ASSERT_TRUE(desk.waitForNotice());
    desk.key("Return");
    ASSERT_TRUE(desk.noticeGone());
    ASSERT_TRUE(desk.waitForPage(0));
}

TEST_F(BrokenSave, AServerThatIsGoneKeepsTheCompanyHereForTheNextSave) {
    office_->change("update TBL_CUSTOMER_ADD set SEND_FLAG = 1 where USER_ID = '000004601'");
    Terminal desk = opened();
    server_->stop();
    editAndSave(desk, "再送　太郎");
    EXPECT_EQ(field("TANTO_NAME"), "再送　太郎");
    EXPECT_EQ(field("SEND_FLAG"), "1");
    EXPECT_EQ(field("PHOTO_FILE1"), "000004601COS00000000_01.jpg");
    EXPECT_TRUE(contains(office_->errLog(), "24011,")) << office_->errLog();
    EXPECT_EQ(locks(), "000004601 DESK-01");
}

TEST_F(BrokenSave, AServerThatRefusesThePhotosStillGetsTheCompany) {
    Terminal desk = opened();
    server_->misbehave("photos:status=500");
    editAndSave(desk, "写真　なし");
    EXPECT_EQ(field("TANTO_NAME"), "写真　なし");
    EXPECT_EQ(field("PWD_CHG_FLG"), "1");
    EXPECT_TRUE(contains(office_->errLog(), "500,[ RH_ImageDataTransfr ] ")) << office_->errLog();
    EXPECT_TRUE(contains(server_->log(), "POST /cussend/register 200")) << server_->log();
}

TEST_F(BrokenSave, APipeThatBreaksIsNotTheEnd) {
    Terminal desk = opened();
    desk.signal(SIGPIPE);
    desk.click("btm_ChangePage", 1);
    EXPECT_TRUE(desk.waitForPage(1));
}

TEST_F(BrokenSave, AStoreInUseElsewhereIsWaitedForAndThenToldOf) {
    Terminal desk = opened();
    const std::string before = field("TANTO_NAME");
    {
        Process holder({"sqlite3", office_->store().string(), "begin exclusive", ".shell sleep 30"});
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        editAndSave(desk, "待機　花子");
        EXPECT_TRUE(contains(office_->errLog(), "DB5,")) << office_->errLog();
    }
    EXPECT_EQ(field("TANTO_NAME"), before);
    editAndSave(desk, "待機　花子");
    EXPECT_EQ(field("TANTO_NAME"), "待機　花子");
}

TEST_F(BrokenSave, APhotoThatIsNoPictureCostsNothingElse) {
    std::ofstream(office_->drive() / "ORV/IMG/1/000004601COS00000000_01.jpg", std::ios::binary) << "no picture";
    Terminal desk = opened();
    desk.click("btm_ChangePage", 2);
    ASSERT_TRUE(desk.waitForNotice());
    desk.key("Return");
    ASSERT_TRUE(desk.noticeGone());
    ASSERT_TRUE(desk.waitForPage(2));
    EXPECT_TRUE(contains(office_->errLog(), "[ PF_Thumbnail ] ")) << office_->errLog();
    const std::string dayOff = field("DAY_OFF");
    desk.click("btm_ChangePage", 0);
    ASSERT_TRUE(desk.waitForPage(0));
    editAndSave(desk, "画像　次郎");
    EXPECT_EQ(field("TANTO_NAME"), "画像　次郎");
    EXPECT_EQ(field("DAY_OFF"), dayOff);
    EXPECT_EQ(field("PHOTO_FILE1"), "000004601COS00000000_01.jpg");
}

}  // namespace
}  // namespace desk
