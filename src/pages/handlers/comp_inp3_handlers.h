#pragma once

#include "pages/forms/frm_comp_inp3.h"

namespace orv {

void chk_Management_Type_Flg_Click(frm_CompInp3& form, int index);
void chk_Business_Type_Flg_Click(frm_CompInp3& form, int index);

void wireCompInp3(frm_CompInp3& form);

}  // namespace orv
