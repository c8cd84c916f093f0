#include <random>
#include <set>
#include <thread>

#include "end_to_end.h"

namespace desk {
namespace {

using Killed = EndToEnd;

/// Wherever it is caught, the store is as before the save, as after its first write or as after its second, and the
/// next start opens the company with its photos.
TEST_F(Killed, AProgramInASaveLeavesAWholeCompany) {
    const std::string rows = "COMPANY_NAME || '|' || TANTO_NAME || '|' || PWD_CHG_FLG || '|' || SEND_FLAG";
    server_->misbehave("companies:delay=100");
    std::mt19937 random(20261124);
    std::set<std::string> seen;
    for (int round = 0; round < 8; ++round) {
        office_->change(
            "update TBL_CUSTOMER_INFO set TANTO_NAME = '前', PWD_CHG_FLG = '2' where USER_ID = '000004601'; "
            "update TBL_CUSTOMER_ADD set SEND_FLAG = 1 where USER_ID = '000004601'");
        const std::string name = field("COMPANY_NAME");
        Terminal desk = terminal("DESK-01");
        desk.start("000004601,1,0");
        ASSERT_TRUE(desk.waitForPage(0));
        desk.enter("txt_Tanto_Name", "後");
        desk.click("btm_Save");
        std::this_thread::sleep_for(std::chrono::milliseconds(random() % 400));
        desk.kill();
        const std::string now = field(rows);
        seen.insert(now);
        EXPECT_TRUE(now == name + "|前|2|1" || now == name + "|後|2|1" || now == name + "|後|1|0") << now;
        EXPECT_EQ(locks(), "000004601 DESK-01");
    }
    Terminal desk = terminal("DESK-01");
    desk.start("000004601,1,0");
    ASSERT_TRUE(desk.waitForPage(0));
    desk.click("btm_Save");
    answer(desk, "Return");
    ASSERT_TRUE(desk.noticeGone());
    EXPECT_EQ(field(rows + " || PHOTO_FILE1 || PHOTO_FILE2"),
              field("COMPANY_NAME") + "|" + field("TANTO_NAME") +
                  "|1|0000004601COS00000000_01.jpg000004601COS00000000_02.jpg");
    EXPECT_EQ(office_->errLog(), "");
    for (const char* folder : {"ORV/IMG/1", "ORV/IMG/2", "ORV/TMP"}) {
        for (const auto& entry : std::filesystem::directory_iterator(office_->drive() / folder)) {
            EXPECT_FALSE(entry.path().string().ends_with("tmp") || entry.path().string().ends_with("new")) << entry;
        }
    }
}

}  // namespace
}  // namespace desk
