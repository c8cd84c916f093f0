#include "images/fitting_case.h"
#include "images/frm_img_common.h"
#include "images/ime_resize.h"

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

TEST_F(Confirmation, APictureThatWasNotChangedIsNotAskedAbout) {
    picture(640, 480, 61440);
    EXPECT_EQ(fit(), kWork);
    EXPECT_TRUE(windows.calls.empty());
    picture(640, 480, 61441);
    during([](frm_ImgCommon& form) { form.cmd_Entry.press(); });
    EXPECT_EQ(fit(), kWork);
}

}  // namespace
}  // namespace orv
