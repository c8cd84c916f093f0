#pragma once

#include "pages/controls/frm_comp_inp2.h"

namespace orv {

// A link name always comes with at least the beginning of an address, and the bare beginning goes with the link name.
void txt_Company_URL_Comment_Change(frm_CompInp2& form);
void txt_Company_URL_Comment_LostFocus(frm_CompInp2& form);

void wireCompInp2(frm_CompInp2& form);

}  // namespace orv
