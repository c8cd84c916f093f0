#include "pages/handlers/page_handlers.h"

#include "logging/handled.h"
#include "pages/forms/form_helpers.h"
#include "pages/handlers/frame_handlers.h"

namespace orv {
namespace {

void colour(CheckBox& box, const char* label) {
    handled(label, [&] { showTick(box); });
}

template <std::size_t N>
void wireBoxes(frm_CompInp3& form, ControlArray<CheckBox, N>& boxes, void (*click)(frm_CompInp3&, int)) {
    for (std::size_t i = 0; i < N; ++i) {
        CheckBox& box = boxes[i];
        box.onClick = [&form, click, i] { click(form, static_cast<int>(i)); };
        box.onKeyDown = [&form, &box](int key) { enterMovesOn(form, box, key); };
    }
}

}  // namespace

void chk_Management_Type_Flg_Click(frm_CompInp3& form, int index) {
    colour(form.chk_Management_Type_Flg[static_cast<std::size_t>(index)], "[ CompInp3 chk_Management_Type_Flg_Click ]");
}

void chk_Business_Type_Flg_Click(frm_CompInp3& form, int index) {
    colour(form.chk_Business_Type_Flg[static_cast<std::size_t>(index)], "[ CompInp3 chk_Business_Type_Flg_Click ]");
}

void wireCompInp3(frm_CompInp3& form) {
    wireFrame(form);
    form.onLoad = [&form] { Form_Load(form); };
    wireBoxes(form, form.chk_Management_Type_Flg, chk_Management_Type_Flg_Click);
    wireBoxes(form, form.chk_Business_Type_Flg, chk_Business_Type_Flg_Click);
}

}  // namespace orv
