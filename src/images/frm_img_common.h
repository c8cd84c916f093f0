#pragma once

#include "platform/controls/captions.h"
#include "platform/controls/image_control.h"
#include "platform/forms/form.h"

namespace orv {

inline constexpr Point kImgCommonSize{660, 661};

/// Shows the fitted picture with its own figures and those of the original, and asks for confirmation. The only output
/// is `gImgDstFile`, which a cancel empties.
struct frm_ImgCommon : Form {
    frm_ImgCommon();

    // clang-format off
    Label lbl_ImgCommonTitle{*this, "lbl_ImgCommonTitle", {.caption = "以下の登録画像を保存します。よろしければ確定ボタンを押してください。"}};
    Label lbl_BeforImg{*this, "lbl_BeforImg", {}};
    Label lbl_AfterImg{*this, "lbl_AfterImg", {}};
    ImageControl pic_Info{*this, "pic_Info", {.width = 640, .height = 494, .spokenName = "登録画像"}};
    Button cmd_Entry{*this, "cmd_Entry", {.caption = "確定", .look = ButtonLook::Action}};
    Button cmd_Cancel{*this, "cmd_Cancel", {.caption = "キャンセル", .look = ButtonLook::Action, .shortcut = "Esc"}};
    // clang-format on
};

}  // namespace orv
