#include "images/fitting_case.h"
#include "images/frm_img_common.h"
#include "images/ime_resize.h"
#include "pages/layout/layouts.h"

namespace orv {
namespace {

using Script = std::function<void(frm_ImgCommon&)>;

class Confirmation : public FittingTest {
protected:
    Confirmation() {
        picture(1600, 1200, 3 << 20);
        pictures.script.sizeAt = [](int factor) { return factor < 85 ? 61441 : 1536; };
    }
    void during(const Script& script) {
        windows.onModal("frm_ImgCommon", [script](Form& form) { script(dynamic_cast<frm_ImgCommon&>(form)); });
    }
    /// The target that comes back, or the pair.
    std::string fit() {
        std::string target = kWork;
        return PF_ImeResize(source, image, target) ? target : pair();
    }
};

TEST_F(Confirmation, TellsTheFiguresOfBothPicturesToTheLetter) {
    during([](frm_ImgCommon& form) {
        EXPECT_EQ(form.caption(), "画像変換確認");
        EXPECT_EQ(form.lbl_ImgCommonTitle.caption(),
                  "以下の登録画像を保存します。よろしければ確定ボタンを押してください。");
        EXPECT_EQ(form.lbl_BeforImg.caption(), "選択画像:3.0MB(ファイルサイズ),1200ピクセル(高さ),1600ピクセル(幅)");
        EXPECT_EQ(form.lbl_AfterImg.caption(),
                  "登録画像:1.5KB(ファイルサイズ),480ピクセル(高さ),640ピクセル(幅),85/ 255(画質率)");
        EXPECT_EQ(form.pic_Info.bitmapWidth(), 640);
        EXPECT_EQ(form.canvas().back(), Colour{0xfff6f6});
        form.cmd_Entry.press();
    });
    EXPECT_EQ(fit(), kWork);
    EXPECT_EQ(windows.calls, (std::vector<std::string>{"open frm_ImgCommon", "centre frm_ImgCommon",
                                                       "modal frm_ImgCommon", "close frm_ImgCommon"}));
    pictures.script.sizeAt = [](int) { return 1000; };
    during([](frm_ImgCommon& form) {
        EXPECT_TRUE(form.lbl_AfterImg.caption().ends_with(",255/255(画質率)")) << "scaled and not searched for";
        form.cmd_Entry.press();
    });
    EXPECT_EQ(fit(), kWork);
}

TEST_F(Confirmation, OnlyTheEntryButtonAccepts) {
    during([](frm_ImgCommon& form) { form.cmd_Cancel.press(); });
    EXPECT_EQ(fit(), "");
    during([](frm_ImgCommon& form) { services().forms->unload(form, UnloadMode::CloseBox); });
    EXPECT_EQ(fit(), "");
    EXPECT_EQ(pair(), " ");
    EXPECT_TRUE(forms.forms().empty());
}

TEST_F(Confirmation, APictureThatWasNotChangedIsNotAskedAbout) {
    picture(640, 480, 61440);
    EXPECT_EQ(fit(), kWork);
    EXPECT_TRUE(windows.calls.empty());
    picture(640, 480, 61441);
    during([](frm_ImgCommon& form) { form.cmd_Entry.press(); });
    EXPECT_EQ(fit(), kWork);
}

TEST_F(Confirmation, ADialogThatCannotBeMadeReadyIsNoTextOfItsOwn) {
    windows.refused = "centre frm_ImgCommon";
    EXPECT_EQ(fit(), " ");
    EXPECT_TRUE(forms.forms().empty());
    windows.refused = "modal frm_ImgCommon";
    EXPECT_EQ(fit(), "7 [ PF_ImeResize ] メモリが足りません。");
    EXPECT_TRUE(forms.forms().empty());
}

TEST_F(Confirmation, F1AsksForTheHelpOfTheActiveControl) {
    during([&](frm_ImgCommon& form) {
        form.keyDown(kKeyF1);
        form.cmd_Cancel.setFocus();
        form.keyDown(kKeyF1);
        form.keyDown(kKeyF1 + 1);
        EXPECT_EQ(help.asked, (std::vector<std::string>{"IMG cmd_Entry", "IMG cmd_Cancel"}));
        EXPECT_TRUE(shownIds().empty());

        forms.setPointer(kPointerHourglass);
        help.refusal = {"説明がありません。", "HELP0002"};
        form.keyDown(kKeyF1);
        EXPECT_EQ(forms.pointer(), kPointerDefault);
        expectReported("HELP0002", "説明がありません。", "00000000");
        EXPECT_TRUE(form.loaded()) << "the dialog stays open";

        services().help = nullptr;
        messages.failure = Failure::OutOfMemory;
        frm_ImgCommon untouched;
        untouched.keyDown(kKeyF1);
        ASSERT_EQ(windows.notices.size(), 1U);
        EXPECT_EQ(windows.notices.front().title + windows.notices.front().text, "91操作の対象がありません。");
        form.cmd_Entry.press();
    });
    EXPECT_EQ(fit(), kWork);
}

TEST_F(Confirmation, ControlsFollowTheSizeOfTheWindow) {
    frm_ImgCommon form;
    for (const Placement& place : layoutOf("frm_ImgCommon")) {
        form.find(place.control)->setBox(place.box);
    }
    const auto boxes = [&form] {
        std::vector<Box> all;
        for (const Control* control : form.controls()) {
            all.push_back(control->box());
        }
        return all;
    };
    const std::vector<Box> designed = boxes();
    form.resize(kImgCommonSize);
    EXPECT_EQ(boxes(), designed) << "the layout is what the figures give for the first size";

    form.resize({1000, 500});
    EXPECT_EQ(form.pic_Info.box(), (Box{10, 94, 980, 333}));
    EXPECT_EQ(form.lbl_AfterImg.box(), (Box{10, 66, 980, 22}));
    EXPECT_EQ(form.cmd_Entry.box(), (Box{873, 431, 108, 28}));
    EXPECT_EQ(form.cmd_Cancel.box(), (Box{10, 431, 108, 28}));
    EXPECT_EQ(form.canvas().shapes().size(), 167U);

    const std::vector<Box> before = boxes();
    form.resize({20, 69});
    EXPECT_EQ(boxes(), before) << "nothing that is left is positive";
    form.resize({127, 70});
    EXPECT_EQ(form.cmd_Entry.box(), (Box{0, 1, 108, 28}));
    EXPECT_EQ(form.pic_Info.box(), (Box{10, 94, 107, 333}));
}

TEST_F(Confirmation, ThePictureIsShownWholeAndNeverLarger) {
    frm_ImgCommon form;
    form.pic_Info.load(source);
    form.pic_Info.setBox({10, 94, 640, 494});
    form.resize(kImgCommonSize);
    EXPECT_EQ(form.pic_Info.dstRect(), (Box{0, 7, 640, 480})) << "1600 by 1200";
    picture(100, 50);
    form.pic_Info.load(source);
    form.resize(kImgCommonSize);
    EXPECT_EQ(form.pic_Info.dstRect(), (Box{270, 222, 100, 50}));
}

}  // namespace
}  // namespace orv
