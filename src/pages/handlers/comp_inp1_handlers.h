#pragma once

#include "pages/forms/frm_comp_inp1.h"

namespace orv {

/// Enables the licence fields, or disables them for an agency without a licence.
void cbo_License_No_Click(frm_CompInp1& form);
void chk_Dantai_Click(frm_CompInp1& form, int index);
void chk_Koutori_Click(frm_CompInp1& form, int index);
void cbo_Dantai_Name_Click(frm_CompInp1& form);
void txt_Other_Dantai_Name_Change(frm_CompInp1& form);
void txt_Other_Dantai_Name_Validate(frm_CompInp1& form);

void wireCompInp1(frm_CompInp1& form);

}  // namespace orv
