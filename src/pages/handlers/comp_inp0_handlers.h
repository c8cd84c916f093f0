#pragma once

#include "pages/forms/frm_comp_inp0.h"

namespace orv {

/// Enables or disables the fields of the computer's site.
void chk_EqualData_Click(frm_CompInp0& form);
void chk_EqualData_KeyDown(frm_CompInp0& form, int key);

// Start the address search for one of the two addresses; the page waits. Any key on the button ends the waiting.
void btm_SearchOfficeAddress_Click(frm_CompInp0& form);
void btm_SearchOfficeAddress_KeyDown(frm_CompInp0& form, int& key);
void btm_Pc_SearchOfficeAddress_Click(frm_CompInp0& form);
void btm_Pc_SearchOfficeAddress_KeyDown(frm_CompInp0& form, int& key);

/// Asks for a new password in a dialog and shows the record's new password at once.
void btm_ChangePW_Click(frm_CompInp0& form);

// Format seven digits as a post code when the field loses the focus. They reject nothing.
void txt_Post_Code_Validate(frm_CompInp0& form);
void txt_Pc_Post_Code_Validate(frm_CompInp0& form);

/// Shows the number of published contracts if the store has one. On false the pair holds the failure.
[[nodiscard]] bool F_Check_Pubish_Number(frm_CompInp0& form);

void wireCompInp0(frm_CompInp0& form);

}  // namespace orv
