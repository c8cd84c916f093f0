#pragma once

#include "pages/forms/frm_comp_inp2.h"

namespace orv {

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

}  // namespace orv
