#include "end_to_end.h"
#include "process.h"

namespace desk {
namespace {

class Photo : public EndToEnd {
protected:
    Photo() : photo(office_->layPhoto()), original(office_->drive() / "ORV/PHOTO" / photo) {
        desk.start("000004601,1,0");
        EXPECT_TRUE(desk.waitForPage(0));
        desk.click("btm_ChangePage", 2);
        EXPECT_TRUE(desk.waitForPage(2));
    }
    void select(const std::string& file) {
        desk.click("btm_PhotoSelect", 0);
        ASSERT_TRUE(desk.waitForWindow("ファイルを開く"));
        desk.typeAscii(file);
        desk.key("Return");
    }
    void saveAndLeave() {
        desk.click("btm_Save");
        answer(desk, "Return");
        ASSERT_TRUE(desk.noticeGone());
        ASSERT_TRUE(desk.waitForPage(2));
        desk.click("btm_Back_Menu");
        EXPECT_EQ(desk.waitForEnd(), 0);
    }
    std::string photoFacts(const std::filesystem::path& file) const {
        return outputOf({"identify", "-format", "%m %w %h", file.string()});
    }

    std::string photo;
    std::filesystem::path original;
    std::filesystem::path stored = office_->drive() / "ORV/IMG/1/000004601COS00000000_01.jpg";
    Terminal desk = terminal("DESK-01");
};

TEST_F(Photo, TakenThroughTheDialogsItReachesStoreAndServer) {
    const auto size = std::filesystem::file_size(original);
    select(photo);
    ASSERT_TRUE(desk.waitForConfirmation());
    desk.click("cmd_Entry");
    ASSERT_TRUE(desk.waitForPage(2));
    saveAndLeave();
    EXPECT_EQ(photoFacts(original), "JPEG 2560 1600");
    EXPECT_EQ(std::filesystem::file_size(original), size) << "never written to";
    EXPECT_EQ(photoFacts(stored), "JPEG 640 400");
    EXPECT_LE(std::filesystem::file_size(stored), 61440U);
    EXPECT_GT(std::filesystem::file_size(stored), 50000U) << "the best that fits, not any that fits";
    EXPECT_TRUE(sameContent(server_->folder() / "photos/000004601COS00000000_01.jpg", stored));
    EXPECT_EQ(office_->errLog(), "");
}

TEST_F(Photo, EveryWayBackLeavesTheStoredPhoto) {
    const std::filesystem::path kept = folder_ / "kept.jpg";
    std::filesystem::copy_file(stored, kept);
    desk.click("btm_PhotoSelect", 0);
    ASSERT_TRUE(desk.waitForWindow("ファイルを開く"));
    desk.key("Escape");
    ASSERT_TRUE(desk.waitForPage(2));
    EXPECT_TRUE(eventually([&] { return contains(office_->errLog(), "IMGERR:20150"); }));
    select(photo);
    ASSERT_TRUE(desk.waitForConfirmation());
    desk.key("alt+F4");
    ASSERT_TRUE(desk.waitForPage(2));
    select(photo);
    ASSERT_TRUE(desk.waitForConfirmation());
    desk.click("cmd_Cancel");
    ASSERT_TRUE(desk.waitForPage(2));
    std::ofstream(original, std::ios::trunc) << "no picture";
    select(photo);
    answer(desk, "Return");
    ASSERT_TRUE(desk.noticeGone());
    ASSERT_TRUE(desk.waitForPage(2));
    saveAndLeave();
    EXPECT_TRUE(sameContent(stored, kept));
}

}  // namespace
}  // namespace desk
