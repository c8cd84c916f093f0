#include "images/frm_img_common.h"

#include <algorithm>
#include <cmath>

#include "core/record/globals.h"
#include "images/file_size_text.h"
#include "logging/handled.h"
#include "logging/trap.h"
#include "pages/forms/form_helpers.h"
#include "platform/forms/form_host.h"
#include "platform/run_time_error.h"
#include "platform/services.h"
#include "platform/suite/help_service.h"

namespace orv {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr const char* kHelpGroup = "IMG";
constexpr Report kZeros{.id = "00000000", .logFirst = true};

std::string figures(const std::string& size, const std::string& height, const std::string& width) {
    return size + "(ファイルサイズ)," + height + "ピクセル(高さ)," + width + "ピクセル(幅)";
}

/// Shows the picture in the middle of the control, in its proportions and not enlarged.
void showWhole(ImageControl& image) {
    const double fitting = std::min({1.0, static_cast<double>(image.width()) / image.bitmapWidth(),
                                     static_cast<double>(image.height()) / image.bitmapHeight()});
    const int width = std::max(1, static_cast<int>(std::lround(image.bitmapWidth() * fitting)));
    const int height = std::max(1, static_cast<int>(std::lround(image.bitmapHeight() * fitting)));
    image.setDstRect({(image.width() - width) / 2, (image.height() - height) / 2, width, height});
    image.setDstClipRect({0, 0, image.width(), image.height()});
}

void Form_Load(frm_ImgCommon& form) {
    gImgLoaded = false;
    PS_SetFormCenter(form);
    drawStripes(form);
    form.pic_Info.load(gImgDstFile);
    form.pic_Info.getFileInfo(gImgDstFile);
    showWhole(form.pic_Info);
    form.lbl_BeforImg.setCaption("選択画像:" + figures(gImgSrcSizeText, gImgSrcHeightText, gImgSrcWidthText));
    form.lbl_AfterImg.setCaption("登録画像:" +
                                 figures(PF_GetFileSizeString(form.pic_Info.infoSizeDisk()),
                                         std::to_string(form.pic_Info.infoHeight()),
                                         std::to_string(form.pic_Info.infoWidth())) +
                                 "," + gImgQualityText + "(画質率)");
    gImgLoaded = true;
}

/// Assigns `side` pixels minus `fixed` twips, if the result is positive.
template <class Assign>
void whenPositive(int side, int fixed, Assign assign) {
    const int twips = side * kTwipsPerPixel - fixed;
    if (twips > 0) {
        assign(static_cast<int>(std::lround(static_cast<double>(twips) / kTwipsPerPixel)));
    }
}

void Form_Resize(frm_ImgCommon& form) {
    whenPositive(form.scaleWidth(), 300, [&](int width) {
        form.pic_Info.setWidth(width);
        form.lbl_ImgCommonTitle.setWidth(width);
        form.lbl_BeforImg.setWidth(width);
        form.lbl_AfterImg.setWidth(width);
    });
    whenPositive(form.scaleHeight(), 2500, [&](int height) { form.pic_Info.setHeight(height); });
    whenPositive(form.scaleHeight(), 1035, [&](int top) {
        form.cmd_Cancel.setTop(top);
        form.cmd_Entry.setTop(top);
    });
    whenPositive(form.scaleWidth(), 1900, [&](int left) { form.cmd_Entry.setLeft(left); });
    if (form.pic_Info.picture()) {
        showWhole(form.pic_Info);
    }
    drawStripes(form);
}

bool showHelp(const Form& form) {
    if (form.activeControl() == nullptr) {
        throw RunTimeError(Failure::ObjectNotSet);
    }
    HelpService& help = *services().help;
    return help.ShowHelp(form.activeControl()->name(), kHelpGroup) || failFrom(help.ErrorInfo());
}

void Form_KeyDown(const Form& form, int key) {
    if (key == kKeyF1) {
        handled(
            "", [&] { return showHelp(form); }, kZeros);
    }
}

void close(Form& form) { services().forms->unload(form, UnloadMode::Code); }

}  // namespace

frm_ImgCommon::frm_ImgCommon() : Form("frm_ImgCommon", "画像変換確認", kImgCommonSize, Sizing::Free) {
    // A failed load is reported only through `gImgLoaded`.
    onLoad = [this] { static_cast<void>(caught([this] { Form_Load(*this); })); };
    onResize = [this] { Form_Resize(*this); };
    onKeyDown = [this](int key) { Form_KeyDown(*this, key); };
    onQueryUnload = [](bool&, UnloadMode mode) {
        if (mode != UnloadMode::Code) {
            gImgDstFile.clear();
        }
    };
    cmd_Entry.onClick = [this] { close(*this); };
    cmd_Cancel.onClick = [this] {
        gImgDstFile.clear();
        close(*this);
    };
}

}  // namespace orv
