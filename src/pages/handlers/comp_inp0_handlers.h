#pragma once

#include "pages/controls/frm_comp_inp0.h"

namespace orv {

/// Opens or closes the block of the computer's site.
void chk_EqualData_Click(frm_CompInp0& form);
void chk_EqualData_KeyDown(frm_CompInp0& form, int key);

// The address search works for one of the two blocks while the page waits; any key on the button ends the waiting.
void btm_SearchOfficeAddress_Click(frm_CompInp0& form);
void btm_SearchOfficeAddress_KeyDown(frm_CompInp0& form, int& key);
void btm_Pc_SearchOfficeAddress_Click(frm_CompInp0& form);
void btm_Pc_SearchOfficeAddress_KeyDown(frm_CompInp0& form, int& key);

/// Asks for a new password in a dialog; what it has put into the record shows here at once.
void btm_ChangePW_Click(frm_CompInp0& form);

// Seven digits become a post code when the field is left. Nothing is refused.
void txt_Post_Code_Validate(frm_CompInp0& form);
void txt_Pc_Post_Code_Validate(frm_CompInp0& form);

/// Shows how many contracts are published, where the store has a count. False: the pair tells why.
[[nodiscard]] bool F_Check_Pubish_Number(frm_CompInp0& form);

void wireCompInp0(frm_CompInp0& form);

}  // namespace orv
