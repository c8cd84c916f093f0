#pragma once

#include "pages/forms/frm_change_password.h"
#include "pages/forms/frm_comp_inp0.h"
#include "pages/forms/frm_comp_inp1.h"
#include "pages/forms/frm_comp_inp2.h"
#include "pages/forms/frm_comp_inp3.h"
#include "pages/forms/frm_comp_inp4.h"

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

/// Enables the licence fields, or disables them for an agency without a licence.
void cbo_License_No_Click(frm_CompInp1& form);
void chk_Dantai_Click(frm_CompInp1& form, int index);
void chk_Koutori_Click(frm_CompInp1& form, int index);
void cbo_Dantai_Name_Click(frm_CompInp1& form);
void txt_Other_Dantai_Name_Change(frm_CompInp1& form);
void txt_Other_Dantai_Name_Validate(frm_CompInp1& form);

void wireCompInp1(frm_CompInp1& form);

// Starts the search of line and station; the page waits. Any key on the button ends the waiting.
void btn_SelectRail_Click(frm_CompInp2& form);
void btn_SelectRail_KeyDown(frm_CompInp2& form, int& key);

void cbo_pic_PhotoFile_KeyDown(frm_CompInp2& form, std::size_t slot, int key);

/// Removes the line and the station and keeps the ways from the station.
void btn_DelRail_Click(frm_CompInp2& form);

// A link name requires an address, so the prefix is preset. A bare prefix is removed together with the link name.
void txt_Company_URL_Comment_Change(frm_CompInp2& form);
void txt_Company_URL_Comment_LostFocus(frm_CompInp2& form);

void wireCompInp2(frm_CompInp2& form);

void chk_Management_Type_Flg_Click(frm_CompInp3& form, int index);
void chk_Business_Type_Flg_Click(frm_CompInp3& form, int index);

void wireCompInp3(frm_CompInp3& form);

/// This read-only page has no handlers of its own.
void wireCompInp4(frm_CompInp4& form);

void Form_Load(frm_ChangePassword& dialog);
/// Accepts the change and closes the dialog. After a rejection the dialog stays open with the typed texts.
void btm_Entry_Click(frm_ChangePassword& dialog);
void btm_Cancel_Click(frm_ChangePassword& dialog);

/// Enter confirms in any field; Esc cancels everywhere.
void wireChangePassword(frm_ChangePassword& dialog);

}  // namespace orv
