#include "images/fitting_case.h"
#include "images/frm_img_common.h"
#include "images/image_fit.h"
#include "pages/handlers/frame_handlers.h"
#include "platform/suite/help_service.h"

namespace orv {
namespace {

using Script = std::function<void(frm_ImgCommon&)>;

class Confirmation : public FittingTest {
protected:
    Confirmation() {
        picture(1600, 1200, 3 << 20);
        pictures.script.sizeAt = [](int factor) { return factor < 85 ? 61441 : 1536; };
    }
    void operate(const Script& script) {
        windows.onModal("frm_ImgCommon", [script](Form& form) { script(dynamic_cast<frm_ImgCommon&>(form)); });
    }
    /// Returns the resulting target, or the pair.
    std::string fit() {
        std::string target = kWork;
        return PF_ImeResize(source, image, target) ? target : pair();
    }
};

TEST_F(Confirmation, ShowsTheExactFiguresOfBothPictures) {
    operate([](frm_ImgCommon& form) {
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
    operate([](frm_ImgCommon& form) {
        EXPECT_TRUE(form.lbl_AfterImg.caption().ends_with(",255/255(画質率)")) << "scaled and not searched for";
        form.cmd_Entry.press();
    });
    EXPECT_EQ(fit(), kWork);
}

TEST_F(Confirmation, APictureThatWasNotChangedIsNotAskedAbout) {
    picture(640, 480, 61440);
    EXPECT_EQ(fit(), kWork);
    EXPECT_TRUE(windows.calls.empty());
    picture(640, 480, 61441);
    operate([](frm_ImgCommon& form) { form.cmd_Entry.press(); });
    EXPECT_EQ(fit(), kWork);
}

TEST_F(Confirmation, OnlyTheEntryButtonTakesThePicture) {
    const std::pair<Script, const char*> ways[] = {
        {[](frm_ImgCommon& form) { form.cmd_Entry.press(); }, kWork},
        {[](frm_ImgCommon& form) { form.cmd_Cancel.press(); }, ""},
        {[&](frm_ImgCommon& form) { forms.unload(form, UnloadMode::CloseBox); }, ""},
    };
    for (const auto& [way, target] : ways) {
        operate(way);
        EXPECT_EQ(fit(), target);
    }
    operate([](frm_ImgCommon&) { throw RunTimeError(Failure::OutOfMemory); });
    EXPECT_EQ(fit(), "7 [ PF_ImeResize ] メモリが足りません。");
    EXPECT_EQ(windows.calls.back(), "close frm_ImgCommon");
}

/// The window without the fixed margins is divided among the controls. If the result is not positive, nothing changes.
TEST_F(Confirmation, FollowsTheWindow) {
    operate([](frm_ImgCommon& form) {
        struct Case {
            Point size;
            int width, height, top, left;
            Box picture;
        };
        for (const Case& row :
             {Case{{400, 300}, 380, 133, 231, 273, {101, 0, 177, 133}},
              Case{{20, 69}, 380, 133, 231, 273, {101, 0, 177, 133}}, Case{{21, 166}, 1, 133, 97, 273, {0, 66, 1, 1}},
              Case{{127, 167}, 107, 0, 98, 0, {53, 0, 1, 1}},
              Case{{1000, 900}, 980, 733, 831, 873, {170, 126, 640, 480}}}) {
            form.resize(row.size);
            for (const Control* control : std::initializer_list<const Control*>{
                     &form.pic_Info, &form.lbl_ImgCommonTitle, &form.lbl_BeforImg, &form.lbl_AfterImg}) {
                EXPECT_EQ(control->width(), row.width) << control->name() << row.size.x;
            }
            EXPECT_EQ(form.pic_Info.height(), row.height);
            EXPECT_EQ(form.cmd_Entry.box().y, row.top);
            EXPECT_EQ(form.cmd_Cancel.box().y, row.top);
            EXPECT_EQ(form.cmd_Entry.box().x, row.left);
            EXPECT_EQ(form.pic_Info.dstRect(), row.picture) << row.size.x;
            EXPECT_EQ(form.pic_Info.dstClipRect(), (Box{0, 0, row.width, row.height}));
            const auto& last = std::get<DrawnLine>(form.canvas().shapes().back());
            EXPECT_EQ(last.from.x, 0);
            EXPECT_EQ(last.to.x, row.size.x);
            EXPECT_GT(last.to.y + 3, row.size.y);
        }
        form.cmd_Entry.press();
    });
    EXPECT_EQ(fit(), kWork);
}

class RecordedHelp : public HelpService {
public:
    FailureRecord ErrorInfo() const override { return {"説明がない", "HLP:1"}; }
    bool ShowHelp(const std::string& control, const std::string& group) override {
        shown.push_back(group + " " + control);
        return works;
    }
    std::vector<std::string> shown;
    bool works = true;
};

TEST_F(Confirmation, HelpIsShownByF1AndItsFailureIsLoggedFirst) {
    RecordedHelp help;
    services().help = &help;
    operate([&](frm_ImgCommon& form) {
        form.cmd_Cancel.setFocus();
        form.keyDown(kKeyF1);
        form.keyDown(kKeyEscape);
        EXPECT_EQ(shownIds(), Texts{});
        help.works = false;
        messages.onShow = [&] { EXPECT_EQ(log(), record("HLP:1", "説明がない")) << "before it is shown"; };
        forms.setPointer(kPointerHourglass);
        form.keyDown(kKeyF1);
        EXPECT_EQ(forms.pointer(), kPointerDefault);
        expectReported("HLP:1", "説明がない", "00000000");
        form.cmd_Entry.press();
    });
    EXPECT_EQ(fit(), kWork);
    help.works = true;
    helpOnF1(frm_ImgCommon(), kKeyF1, "");
    EXPECT_EQ(help.shown, (Texts{"IMG cmd_Cancel", "IMG cmd_Cancel", "SSX frm_ImgCommon"})) << "the last as on a page";
}

}  // namespace
}  // namespace orv
