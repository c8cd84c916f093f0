#pragma once

#include "pages/controls/frm_change_password.h"

namespace orv {

void Form_Load(frm_ChangePassword& dialog);
/// Takes the change over and closes the dialog; a refusal leaves it open with what was typed.
void btm_Entry_Click(frm_ChangePassword& dialog);
void btm_Cancel_Click(frm_ChangePassword& dialog);

/// Enter confirms from any field, and Esc gives up from anywhere.
void wireChangePassword(frm_ChangePassword& dialog);

}  // namespace orv
