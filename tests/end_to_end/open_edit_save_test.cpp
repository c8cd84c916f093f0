#include <csignal>

#include "end_to_end.h"
#include "process.h"

namespace ui_driver {
namespace {

using OpenEditSave = EndToEnd;

TEST_F(OpenEditSave, AChangeOnTwoPagesReachesStoreAndServer) {
    const std::string mailFlag = field("MAIL_FLG");
    Terminal terminal = openProgram();
    EXPECT_EQ(locks(), "000004601 DESK-01");
    terminal.signal(SIGPIPE);  // a broken pipe does not end the program
    terminal.enter("txt_Tanto_Name", "操作　花子");
    for (int page = 1; page < 5; ++page) {
        turnTo(terminal, page);
        if (page == 2) {
            terminal.enter("txt_Day_Off", "毎週水曜日");
        }
    }
    terminal.click("btm_Save");
    answer(terminal, 4);
    terminal.click("btm_Back_Menu");
    EXPECT_EQ(terminal.waitForEnd(), 0);

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
    EXPECT_TRUE(orv::readFile(server_->folder() / "photos/000004601COS00000000_01.jpg") ==
                orv::readFile(office_->drive() / "ORV/IMG/1/000004601COS00000000_01.jpg"));
}

TEST_F(OpenEditSave, KeysChangePagesHelpSaveAndCloseDialogs) {
    Terminal terminal = openProgram();
    const auto expectHelp = [&](const std::string& subject, int page) {
        terminal.key("F1");
        ASSERT_TRUE(terminal.waitForWindow(subject + " - ヘルプ"));
        terminal.key("Escape");
        ASSERT_TRUE(terminal.isWindowGone(".* - ヘルプ") && terminal.waitForPage(page));
    };
    expectHelp("グループ名", 0);
    for (const auto& [keys, page] : {std::pair("alt+3", 2), {"ctrl+Next", 3}, {"ctrl+Prior", 2}, {"alt+5", 4}}) {
        terminal.key(keys);
        ASSERT_TRUE(terminal.waitForPage(page)) << keys;
    }
    expectHelp("動作環境", 4);
    terminal.key("ctrl+s");
    answer(terminal, 4);
    terminal.key("alt+1");
    ASSERT_TRUE(terminal.waitForPage(0));
    terminal.click("btm_ChangePW");
    ASSERT_TRUE(terminal.waitForPasswordDialog());
    terminal.key("Escape");
    ASSERT_TRUE(terminal.isWindowGone("パスワード変更") && terminal.waitForPage(0));
    terminal.key("x");
    EXPECT_EQ(terminal.textOnScreen("txt_Group_Name"), "あおぞら見本グループ") << "the focus is on the button";
}

class Photo : public EndToEnd {
protected:
    Photo() { turnTo(terminal, 2); }
    void select(const std::string& file) {
        terminal.click("btm_PhotoSelect", 0);
        ASSERT_TRUE(terminal.waitForWindow("ファイルを開く"));
        terminal.typeAscii(file);
        terminal.key("Return");
    }
    void saveAndLeave() {
        terminal.click("btm_Save");
        answer(terminal, 2);
        terminal.click("btm_Back_Menu");
        EXPECT_EQ(terminal.waitForEnd(), 0);
    }
    std::string photoFacts(const std::filesystem::path& file) const {
        return readOutput({"identify", "-format", "%m %w %h", file.string()});
    }

    std::string photo = office_->copyPhoto();
    std::filesystem::path original = office_->drive() / "ORV/PHOTO" / photo;
    std::filesystem::path stored = office_->drive() / "ORV/IMG/1/000004601COS00000000_01.jpg";
    Terminal terminal = openProgram();
};

TEST_F(Photo, TakenThroughTheDialogsItReachesStoreAndServer) {
    const auto size = std::filesystem::file_size(original);
    select(photo);
    ASSERT_TRUE(terminal.waitForConfirmation());
    terminal.click("cmd_Entry");
    ASSERT_TRUE(terminal.waitForPage(2));
    saveAndLeave();
    EXPECT_EQ(photoFacts(original), "JPEG 2560 1600");
    EXPECT_EQ(std::filesystem::file_size(original), size) << "never written to";
    EXPECT_EQ(photoFacts(stored), "JPEG 640 400");
    EXPECT_LE(std::filesystem::file_size(stored), 61440U);
    EXPECT_GT(std::filesystem::file_size(stored), 50000U) << "the best that fits, not any that fits";
    EXPECT_TRUE(orv::readFile(server_->folder() / "photos/000004601COS00000000_01.jpg") == orv::readFile(stored));
    EXPECT_EQ(office_->errLog(), "");
}

TEST_F(Photo, EveryWayBackLeavesTheStoredPhoto) {
    const std::filesystem::path kept = folder_ / "kept.jpg";
    std::filesystem::copy_file(stored, kept);
    terminal.click("btm_PhotoSelect", 0);
    ASSERT_TRUE(terminal.waitForWindow("ファイルを開く"));
    terminal.key("Escape");
    ASSERT_TRUE(terminal.waitForPage(2));
    EXPECT_TRUE(eventually([&] { return contains(office_->errLog(), "IMGERR:20150"); }));
    select(photo);
    ASSERT_TRUE(terminal.waitForConfirmation());
    terminal.key("alt+F4");
    ASSERT_TRUE(terminal.waitForPage(2));
    select(photo);
    ASSERT_TRUE(terminal.waitForConfirmation());
    terminal.key("Escape");
    ASSERT_TRUE(terminal.waitForPage(2));
    orv::writeFile(original, "no picture");
    select(photo);
    answer(terminal, 2);
    saveAndLeave();
    EXPECT_TRUE(orv::readFile(stored) == orv::readFile(kept));
}

using TwoTerminals = EndToEnd;

TEST_F(TwoTerminals, TheSecondIsRefusedAndADeadRunDoesNotLockOthersOut) {
    Terminal first = openProgram();
    Terminal second = makeTerminal("DESK-02");
    second.start("000004601,1,0");
    answer(second);
    EXPECT_EQ(second.waitForEnd(), 0);
    EXPECT_TRUE(eventually([&] { return office_->menuStarts() == 1; }));
    EXPECT_EQ(office_->errLog(), "") << "a rejection is not a failure";
    EXPECT_EQ(locks(), "000004601 DESK-01");

    Terminal twin = makeTerminal("DESK-01");
    first.minimise();
    twin.start("000004601,1,0");
    EXPECT_EQ(twin.waitForEnd(), 0);
    EXPECT_TRUE(eventually([&] { return office_->menuStarts() == 2; }));
    EXPECT_TRUE(eventually([&] { return contains(first.frontTitle(), "会社情報"); })) << first.frontTitle();
    EXPECT_EQ(locks(), "000004601 DESK-01") << "it is the first one's";
    EXPECT_TRUE(first.running());

    first.kill();
    EXPECT_EQ(locks(), "000004601 DESK-01") << "a dead run leaves its lock";
    Terminal again = openProgram();
    EXPECT_EQ(locks(), "000004601 DESK-01");
    again.key("alt+F4");
    leaveByYes(again);
}

}  // namespace
}  // namespace ui_driver
