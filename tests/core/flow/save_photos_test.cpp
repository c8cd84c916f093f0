#include "core/flow/photo_files.h"

#include "support/fixture.h"

namespace orv {
namespace {

constexpr const char* kWorking1 = "C:\\ORV\\TMP\\TmpImg_1";
constexpr const char* kWorking2 = "C:\\ORV\\TMP\\TmpImg_2";
constexpr const char* kStored1 = "C:\\ORV\\IMG\\1\\000004601COS00000000_01.jpg";
constexpr const char* kStored2 = "C:\\ORV\\IMG\\2\\000004601COS00000000_02.jpg";
constexpr const char* kChosen = "C:\\ORV\\PHOTO\\new.jpg";

/// Starts on page 2, with a photo that can be chosen.
class SavePhotos : public SystemTest {
protected:
    SavePhotos() {
        writeFile(files.nativePath(kChosen), "new photo");
        startOn(2);
    }
    TextInput& path(std::size_t slot) { return page<frm_CompInp2>().txt_PhotoFilePath[slot]; }
    std::string columns() { return add("PHOTO_FILE1 || '|' || PHOTO_FILE2"); }
    std::size_t filesIn(const std::string& folder) {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(paths.toNative(folder))) {
            count += entry.path().filename() == ".gitkeep" ? 0 : 1;
        }
        return count;
    }
};

TEST_F(SavePhotos, AChosenPhotoTakesThePlaceOfTheStoredOne) {
    path(0).setText(kChosen);
    tCustomerInfo.SEND_FLAG = true;
    server.takes = false;
    save();
    EXPECT_EQ(readBytes(kStored1), "new photo");
    EXPECT_EQ(columns(), "000004601COS00000000_01.jpg|000004601COS00000000_02.jpg");
    EXPECT_EQ(tCustomerInfo.PHOTO_FILE1, kWorking1);
    EXPECT_EQ(readBytes(kWorking1), "new photo");
    EXPECT_TRUE(files.isPublished(std::string(kStored1) + ".new") && !files.isPublished(kWorking1));
    EXPECT_EQ(add("SEND_FLAG"), "1") << "until it has been sent";
    server.takes = true;
    save();
    EXPECT_EQ(add("SEND_FLAG"), "0");
    EXPECT_EQ(filesIn("C:\\ORV\\IMG\\1"), 2u) << "this company's and another's; nothing else";
    EXPECT_EQ(readBytes(kChosen), "new photo");
}

TEST_F(SavePhotos, APhotoWhoseFileHasGoneIsDropped) {
    path(0).setText("C:\\ORV\\PHOTO\\gone.jpg");
    save();
    expectShown("COS05574", {});
    EXPECT_EQ(columns(), "|000004601COS00000000_02.jpg");
}

TEST_F(SavePhotos, AFailedReplacementLosesNoPhoto) {
    const std::string before = readBytes(kStored1);
    files.refuse(kStored1, Failure::PermissionDenied);
    save();
    expectShown("COS05574", {});  // an unchanged photo is not written
    const std::string why = "書き込みが許可されていません。";
    for (const auto& [refused, text] :
         {std::pair{std::string(kStored1) + ".new", "[ PF_SaveCompanyDataOther ] " + why},
          {std::string(kStored1), "「" + std::string(kStored1) + "」を削除できませんでした。" + why}}) {
        path(0).setText(kChosen);
        files.refuse(refused, Failure::PermissionDenied);
        save();
        expectReported("70", text);
        EXPECT_EQ(readBytes(kStored1), before);
        EXPECT_EQ(tCustomerInfo.PHOTO_FILE1 + tCustomerInfo.PHOTO_FILE2, std::string(kChosen) + kWorking2);
        files.allowAll();
        EXPECT_FALSE(files.exists(std::string(kStored1) + ".new")) << "nothing remains next to it";
    }
    save();
    EXPECT_EQ(readBytes(kStored1), "new photo");
}

/// The test's files keep the run's folder open, so that moving TMP away changes nothing.
TEST_F(SavePhotos, AFolderThatIsMissingOrUnknownLosesNoPhoto) {
    const std::string photo = readBytes(kStored1);
    for (const std::string stored : {kStored1, kStored2}) {
        // An unchanged photo is neither deleted nor copied.
        files.refuse(stored, Failure::PermissionDenied);
        files.refuse(stored + ".new", Failure::PermissionDenied);
    }
    for (const auto& [key, how, code] : std::to_array<std::array<std::string, 3>>({{"TMP", "empty", ""},
                                                                                   {"TMP", "gone", ""},
                                                                                   {"TMP", "unreadable", "75"},
                                                                                   {"IMG", "empty", "76"},
                                                                                   {"IMG", "gone", "76"},
                                                                                   {"IMG", "unreadable", "75"}})) {
        const std::string folder = office.root() + "/C/ORV/" + key;
        for (const bool fromTheStart : {false, true}) {
            SCOPED_TRACE(key + how + (fromTheStart ? " from the start" : ""));
            endRun();
            if (!fromTheStart) start();
            if (how == "gone") {
                std::filesystem::rename(folder, folder + ".away");
            } else {
                how == "empty" ? settings.set("PATH", key, "") : settings.refuse("PATH", key);
            }
            if (fromTheStart) start();
            for (const int page : {0, 3, 2}) {
                if (forms.activeForm() != nullptr) {
                    turnTo(page);
                    save();
                }
            }
            const auto last = messages.shown.back();
            EXPECT_EQ(last.id == "COSERR01" ? toText(last.args.at(0)) : "", code);
            EXPECT_TRUE(code != "76" || toText(last.args.at(1)).ends_with("」が見つかりません。"));
            settings.set("PATH", key, "C:\\ORV\\" + key);
            if (how == "gone") std::filesystem::rename(folder + ".away", folder);
            if (forms.activeForm() == nullptr) start();
            save();
            EXPECT_EQ(messages.shown.back().id, "COS05574");
            EXPECT_EQ(columns(), "000004601COS00000000_01.jpg|000004601COS00000000_02.jpg");
            EXPECT_EQ(readBytes(tCustomerInfo.PHOTO_FILE1), photo);
        }
    }
}

TEST_F(SavePhotos, AWorkingCopyThatFailsLosesNoPhoto) {
    struct Case {
        std::string refused, photo1, photo2;
    };
    for (const Case& c : {Case{kWorking1, kStored1, kWorking2}, Case{kWorking2, kWorking1, kStored2}}) {
        turnTo(0);
        files.refuse(c.refused, Failure::DiskFull);
        save();
        EXPECT_EQ(shownIds(), (Texts{"COS05574", "COSERR01"})) << "the server has it, the second write did not come";
        EXPECT_EQ(messages.shown.back().args, (Values{"61", "[ PF_SndCos ]ディスクの空き容量が足りません。"}));
        messages.shown.clear();
        EXPECT_EQ(tCustomerInfo.PHOTO_FILE1, c.photo1);
        EXPECT_EQ(tCustomerInfo.PHOTO_FILE2, c.photo2);
        files.allowAll();
        save();
        expectShown("COS05574", {});
        EXPECT_EQ(columns(), "000004601COS00000000_01.jpg|000004601COS00000000_02.jpg");
        EXPECT_TRUE(files.exists(kStored1) && files.exists(kStored2));
        turnTo(2);
    }
}

}  // namespace
}  // namespace orv
