#pragma once

#include "pages/controls/frm_comp_inp2.h"

namespace orv {

// The search of line and station works while the page waits; any key on the button ends the waiting.
void btn_SelectRail_Click(frm_CompInp2& form);
void btn_SelectRail_KeyDown(frm_CompInp2& form, int& key);

void cbo_pic_PhotoFile_KeyDown(frm_CompInp2& form, std::size_t slot, int key);

/// Takes the line and the station back; the ways from the station stay.
void btn_DelRail_Click(frm_CompInp2& form);

// A link name always comes with at least the beginning of an address, and the bare beginning goes with the link name.
void txt_Company_URL_Comment_Change(frm_CompInp2& form);
void txt_Company_URL_Comment_LostFocus(frm_CompInp2& form);

void wireCompInp2(frm_CompInp2& form);

}  // namespace orv
