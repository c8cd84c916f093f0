#pragma once

#include <array>

#include "core/record/company_record.h"
#include "platform/controls/captions.h"
#include "platform/controls/text_input.h"
#include "platform/design.h"
#include "platform/forms/form.h"

namespace orv {

inline constexpr Point kChangePasswordSize{380, 170};

/// Returns a field whose name is the label before it.
inline TextDesign passwordField(const Label& label) {
    return {.mask = "aA#@",
            .limit = characters(kLongestPassword),
            .ime = Ime::Disabled,
            .back = kRequiredField,
            .password = true,
            .spokenName = label.labelDesign().caption};
}

/// Asks for the present password and twice for the new one.
struct frm_ChangePassword : Form {
    frm_ChangePassword() : Form("frm_ChangePassword", "パスワード変更", kChangePasswordSize) {}

    /// True if the load succeeded, so that the dialog can be shown.
    bool ready = false;
    /// True if the last check rejected the texts and showed why. False after a check that failed.
    bool refused = false;

    // clang-format off
    Label lbl_Old_Password{*this, "lbl_Old_Password", {.caption = "今までのパスワード"}};
    Label lbl_New_Password{*this, "lbl_New_Password", {.caption = "新しいパスワード"}};
    Label lbl_New_Password_Try{*this, "lbl_New_Password_Try", {.caption = "新しいパスワードの確認入力"}};
    ControlArray<TextInput, 3> txt_Password{*this, "txt_Password", std::array{passwordField(lbl_Old_Password), passwordField(lbl_New_Password), passwordField(lbl_New_Password_Try)}};
    Button btm_Entry{*this, "btm_Entry", {.caption = "確定", .look = ButtonLook::Action}};
    Button btm_Cancel{*this, "btm_Cancel", {.caption = "キャンセル", .look = ButtonLook::Action, .shortcut = "Esc"}};
    // clang-format on
};

}  // namespace orv
