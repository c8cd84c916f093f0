#pragma once

#include "pages/forms/frm_change_password.h"

namespace orv {

void Form_Load(frm_ChangePassword& dialog);
/// Accepts the change and closes the dialog. After a rejection the dialog stays open with the typed texts.
void btm_Entry_Click(frm_ChangePassword& dialog);
void btm_Cancel_Click(frm_ChangePassword& dialog);

/// Enter confirms in any field; Esc cancels everywhere.
void wireChangePassword(frm_ChangePassword& dialog);

}  // namespace orv
