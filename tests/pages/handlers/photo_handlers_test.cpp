#include "pages/handlers/photo_handlers.h"

#include "images/fitting_case.h"

namespace orv {
namespace {

constexpr const char* kSlotFiles[] = {"C:\\ORV\\TMP\\TmpImg_1", "C:\\ORV\\TMP\\TmpImg_2"};

class PhotoSlotsTest : public FittingTest {
protected:
    PhotoSlotsTest() : form(dynamic_cast<frm_CompInp2&>(startOn(2))) { pictures.script.loaded.clear(); }

    void select(std::size_t slot = 0) {
        windows.pick(source);
        form.btm_PhotoSelect[slot].press();
    }
    void drop(std::size_t slot, const std::string& file) { form.pic_PhotoFile[slot].drop(file); }
    void decide(const std::string& button, const std::function<void()>& meanwhile = {}) {
        windows.onModal("frm_ImgCommon", [button, meanwhile](Form& dialog) {
            if (meanwhile) meanwhile();
            dynamic_cast<Button&>(*dialog.find(button)).press();
        });
    }
    void expectSlotAsItWas() {
        EXPECT_EQ(form.txt_PhotoFilePath[0].text(), kSlotFiles[0]);
        EXPECT_EQ(readBytes(kSlotFiles[0]), slotBytes) << "the working copy";
        EXPECT_FALSE(tCustomerInfo.SEND_FLAG);
    }
    void expectReady() {
        EXPECT_TRUE(form.enabled());
        EXPECT_TRUE(form.btm_PhotoSelect[0].enabled());
        EXPECT_EQ(forms.pointer(), kPointerDefault);
        EXPECT_FALSE(windows.hourglass);
        EXPECT_EQ(windows.work, "");
        EXPECT_FALSE(form.pic_LeadTmp.picture()) << "the pixels are given back";
    }

    frm_CompInp2& form;
    std::string slotBytes = readBytes(kSlotFiles[0]);
};

TEST_F(PhotoSlotsTest, APictureInsideTheLimitsGoesIn) {
    const Control* const focused = form.activeControl();
    for (const std::size_t slot : {0U, 1U}) {
        tCustomerInfo.SEND_FLAG = false;
        form.txt_PhotoFilePath[slot].setText("");
        pictures.script.loaded.clear();
        slot == 0 ? select(slot) : drop(slot, source);
        EXPECT_EQ(readBytes(kSlotFiles[slot]), "a picture");
        EXPECT_EQ(form.txt_PhotoFilePath[slot].text(), kSlotFiles[slot]);
        EXPECT_TRUE(tCustomerInfo.SEND_FLAG);
        EXPECT_EQ(form.activeControl(), focused) << "not on the button, which had not the focus";
        EXPECT_EQ(pictures.script.loaded, (std::vector<std::string>{source, kSlotFiles[slot]})) << "fitted, then shown";
        expectReady();
    }
    EXPECT_TRUE(shownIds().empty());
    EXPECT_EQ(log(), "");
    EXPECT_EQ(readFile(source), "a picture");
}

TEST_F(PhotoSlotsTest, TheOpenDialog) {
    theContext.unsavedChanges = false;
    select();
    EXPECT_TRUE(form.hasUnsavedChanges()) << "another picture under the same name";
    ASSERT_EQ(windows.questions.size(), 1U);
    EXPECT_EQ(windows.questions.front().title, "ファイルを開く");
    EXPECT_EQ(windows.questions.front().filter, "JPEGファイル|*.jpg");
    EXPECT_EQ(windows.questions.front().folder, files.nativePath("C:\\ORV\\PHOTO"));
    settings.set("UTILTY", "GET_IMG", "");
    windows.pick(office.root() + "/C/ORV/IMG/1/000004603COS00000000_01.jpg");
    form.btm_PhotoSelect[0].press();
    EXPECT_EQ(windows.questions.back().folder, "") << "where the setting is missing";
    EXPECT_EQ(gImgSrcFile, "C:\\ORV\\IMG\\1\\000004603COS00000000_01.jpg");
}

TEST_F(PhotoSlotsTest, WhileAPictureIsFittedThePageTakesNothing) {
    picture(1600, 1200);
    pictures.script.sizeAt = [](int factor) { return factor < 85 ? 61441 : 1536; };
    const auto expectClosed = [&] {
        EXPECT_FALSE(form.enabled() || form.btm_PhotoSelect[0].enabled());
        EXPECT_TRUE(windows.hourglass);
        EXPECT_EQ(windows.work, "画像を調整しています…");
        drop(1, source);
        form.btm_PhotoSelect[1].press();
        form.btm_PhotoDel[0].press();
    };
    windows.onRepaint = expectClosed;
    decide("cmd_Entry", expectClosed);
    form.btm_PhotoSelect[0].setFocus();
    select();
    EXPECT_EQ(windows.repaints, 8);
    EXPECT_EQ(windows.questions.size(), 1U);
    EXPECT_EQ(readBytes(kSlotFiles[0]), "factor 85");
    EXPECT_EQ(form.activeControl(), &form.btm_PhotoSelect[0]);
    expectReady();
}

TEST_F(PhotoSlotsTest, ACancelledOpenDialogIsLoggedAndNotShown) {
    windows.pick(std::nullopt);
    form.btm_PhotoSelect[0].press();
    EXPECT_TRUE(shownIds().empty());
    EXPECT_TRUE(windows.notices.empty());
    EXPECT_EQ(log(), record("IMGERR:20150", "画像選択はキャンセルされました。\r\nファイルの選択が取り消されました。"));
    EXPECT_EQ(gErrCode, "IMGERR:20150") << "these handlers leave the pair";
    expectSlotAsItWas();
    expectReady();
}

TEST_F(PhotoSlotsTest, FailuresAreShownAndLoggedAndKeepTheSlot) {
    struct Case {
        std::function<void()> arrange;
        std::string code, text;
        bool prefixed = false;  // by the handler's own label
    };
    const std::vector<Case> cases{
        {[&] { setLimits("640", "480", "0"); }, "IMGERR:01", "ファイルサイズが大きすぎて保存できません。"},
        {[&] { setLimits("0", "480"); }, "IMGERR:02", "[ PF_ResizeImePic ] において、システム設定値が不正です。"},
        {[&] { setLimits("640", "0"); }, "IMGERR:02", "[ PF_ResizeImePic ] において、システム設定値が不正です。"},
        {[&] {
             std::filesystem::remove(filePath(source));
             pictures.script.broken = {"info"};
         },
         "IMGERR:02", "[ PF_ResizeImePic ] において、システム設定値が不正です。"},
        {[&] { setLimits("640", "480", "x"); }, "13", "[ PF_ChangeQFactor ] 型が一致しません。"},
        {[&] { setLimits("", "480"); }, "13", "[ PF_ResizeImePic ] 型が一致しません。"},
        {[&] { pictures.script.broken = {"info"}; }, "57", "[ PF_ImeResize ] 画像ではありません。"},
        {[&] { pictures.script.broken = {"load"}; }, "57", "[ PF_ResizeImePic ] 画像ではありません。"},
        {[&] { files.refuse(kWork, Failure::DiskFull); }, "61", "[ PF_ResizeImePic ] ディスクの空き容量が足りません。"},
        {[&] { files.refuse(kSlotFiles[0], Failure::DiskFull); }, "IMGERR:61", "ディスクの空き容量が足りません。",
         true},
    };
    for (const bool byDrop : {false, true}) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.code + c.text + (byDrop ? " by drop" : ""));
            setLimits("640", "480");
            writeFile(source, "a picture");
            pictures.script.broken.clear();
            files.allowAll();
            c.arrange();
            byDrop ? drop(0, source) : select();
            const std::string label = byDrop ? "[ PhotoFile_OLEDrop ]" : "[ PhotoSelect_Click ]";
            const std::string text = (c.prefixed ? label : "") + c.text;
            expectShown("UTERR001", {c.code, text});
            EXPECT_TRUE(log().ends_with(record(c.code, text))) << log();
            EXPECT_EQ(pair(), c.code + " " + text) << "these handlers leave the pair";
            EXPECT_EQ(hasWorkingFile(), c.prefixed) << "no partial picture remains";
            expectSlotAsItWas();
            expectReady();
        }
    }
}

/// If no message can be shown, a plain box shows the button's failure, and the log has that of the drop.
TEST_F(PhotoSlotsTest, FailuresWithoutAMessage) {
    messages.failure = Failure::Internal;
    files.refuse(kSlotFiles[0], Failure::DiskFull);
    drop(0, source);
    EXPECT_TRUE(windows.notices.empty());
    select();
    const std::string text = "ディスクの空き容量が足りません。";
    ASSERT_EQ(windows.notices.size(), 1U);
    EXPECT_EQ(windows.notices[0].title + " " + windows.notices[0].text, "61 " + text);
    EXPECT_EQ(windows.notices[0].kind, Notice::Kind::Critical);
    EXPECT_EQ(log(), record("IMGERR:61", "[ PhotoFile_OLEDrop ]" + text) +
                         record("IMGERR:61", "[ PhotoSelect_Click ]" + text));
    expectSlotAsItWas();
}

TEST_F(PhotoSlotsTest, DeletingAsksAndEmptiesTheSlotButNoFile) {
    form.cbo_pic_PhotoFile[0].setListIndex(1);
    tCustomerInfo.SEND_FLAG = false;
    answer(1);
    form.btm_PhotoDel[0].press();
    expectShown("IMGMSG01", {});
    EXPECT_EQ(form.cbo_pic_PhotoFile[0].listIndex(), 1);
    expectSlotAsItWas();
    EXPECT_TRUE(form.pic_PhotoFile[0].picture());
    EXPECT_EQ(log(), "");

    messages.onShow = [&] {
        messages.onShow = {};
        throw RunTimeError(Failure::DeviceIo);
    };
    form.btm_PhotoDel[0].press();
    const std::string text = "[ CompInp2 btm_PhotoDel_Click ]" + RunTimeError(Failure::DeviceIo).description();
    EXPECT_EQ(messages.shown.back(), (RecordedMessages::Shown{"COSERR01", {"57", text}}));
    EXPECT_EQ(log(), record("57", text));
    expectSlotAsItWas();
    messages.shown.clear();

    answer(0);
    form.btm_PhotoDel[0].press();
    expectShown("IMGMSG01", {});
    EXPECT_EQ(form.cbo_pic_PhotoFile[0].listIndex(), -1);
    EXPECT_EQ(form.txt_PhotoFilePath[0].text(), "");
    EXPECT_FALSE(form.pic_PhotoFile[0].picture());
    EXPECT_TRUE(form.pic_PhotoFile[0].visible());
    EXPECT_FALSE(tCustomerInfo.SEND_FLAG);
    EXPECT_EQ(form.txt_PhotoFilePath[1].text(), kSlotFiles[1]);
    save();
    EXPECT_EQ(add("PHOTO_FILE1"), "");
    EXPECT_TRUE(files.exists(kSlotFiles[0]));
    EXPECT_TRUE(files.exists("C:\\ORV\\IMG\\1\\000004601COS00000000_01.jpg"));
}

TEST_F(PhotoSlotsTest, ACompanyWithoutANumberHasNoPhotos) {
    leave();
    messages.shown.clear();
    renumber(kCompany, kMarker);
    auto& marker = dynamic_cast<frm_CompInp2&>(startOn(2, "---------,1,0"));
    EXPECT_TRUE(marker.lbl_ImgMsg.visible());
    marker.btm_PhotoSelect[0].press();
    marker.btm_PhotoDel[1].press();
    marker.pic_PhotoFile[0].drop(source);
    EXPECT_TRUE(shownIds().empty());
    EXPECT_TRUE(windows.questions.empty());
}

}  // namespace
}  // namespace orv
