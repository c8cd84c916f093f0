#include "pages/handlers/page_handlers.h"

#include "config/settings.h"
#include "core/record/company_record.h"
#include "logging/handled.h"
#include "pages/forms/control_helpers.h"
#include "pages/forms/form_helpers.h"
#include "pages/handlers/frame_handlers.h"
#include "platform/ascii.h"

namespace orv {
namespace {

constexpr int kListedAssociation = 0;
constexpr int kOtherAssociation = 6;

void openLicence(frm_CompInp1& form, bool open) {
    PF_EnableControl(form.txt_License_no_Dai, open, kRequiredField);
    PF_EnableControl(form.txt_License_No_Go, open, kRequiredField);
    PF_EnableCombo(form.cbo_Get_License_Nengou, open, kRequiredField, std::string(kWesternCalendar));
    PF_EnableCombo(form.cbo_Valid_License_Nengou, open, kRequiredField, std::string(kWesternCalendar));
    for (auto* date : {&form.txt_Get_License_Date, &form.txt_Valid_License_Date}) {
        for (std::size_t i = 0; i < date->size(); ++i) {
            PF_EnableNumber((*date)[i], open, kRequiredField);
        }
    }
}

/// Requests the focus while the field is still disabled, so the focus does not move.
void openOtherAssociation(frm_CompInp1& form, bool open) {
    if (open) {
        PF_SetFocusTo(&form.txt_Other_Dantai_Name);
    }
    PF_EnableControl(form.txt_Other_Dantai_Name, open, kRequiredField);
}

/// Ticks the box if the name is filled, and otherwise unticks it, which disables the name.
void tickOtherAssociation(frm_CompInp1& form, const char* label) {
    handled(label, [&] {
        form.chk_Dantai[kOtherAssociation].setValue(trimmed(form.txt_Other_Dantai_Name.text()).empty() ? 0 : 1);
    });
}

bool keepEditionAssociation(frm_CompInp1& form) {
    if (const auto association = findEditionAssociation()) {
        form.chk_Dantai[*association].setEnabled(false);
    }
    return true;
}

}  // namespace

void cbo_License_No_Click(frm_CompInp1& form) {
    handled("[ CompInp1 cbo_License_No_Click ]",
            [&] { openLicence(form, !isWithoutLicence(form.cbo_License_No.text())); });
}

void chk_Dantai_Click(frm_CompInp1& form, int index) {
    handled("[ CompInp1 chk_Dantai_Click ]", [&] {
        CheckBox& box = form.chk_Dantai[static_cast<std::size_t>(index)];
        const bool on = box.value() != 0;
        if (index == kListedAssociation) {
            PF_EnableCombo(form.cbo_Dantai_Name, on, kRequiredField);
        } else if (index == kOtherAssociation) {
            openOtherAssociation(form, on);
        }
        showTick(box);
    });
}

void chk_Koutori_Click(frm_CompInp1& form, int index) {
    handled("[ CompInp1 chk_Koutori_Click ]", [&] { showTick(form.chk_Koutori[static_cast<std::size_t>(index)]); });
}

void cbo_Dantai_Name_Click(frm_CompInp1& form) {
    handled("[ CompInp1 cbo_Dantai_Name_Click ]", [&] {
        if (!form.cbo_Dantai_Name.text().empty()) {
            form.chk_Dantai[kListedAssociation].setValue(1);
        }
    });
}

/// A disabled field passes its focus to the first council, which the next blank would tick. The box opens the field
/// again.
void txt_Other_Dantai_Name_Change(frm_CompInp1& form) {
    const bool here = form.activeControl() == &form.txt_Other_Dantai_Name;
    tickOtherAssociation(form, "[ CompInp1 txt_Other_Dantai_Name_Change ]");
    if (here && !form.txt_Other_Dantai_Name.enabled()) {
        PF_SetFocusTo(&form.chk_Dantai[kOtherAssociation]);
    }
}

void txt_Other_Dantai_Name_Validate(frm_CompInp1& form) {
    tickOtherAssociation(form, "[ CompInp1 txt_Other_Dantai_Name_Validate ]");
}

void wireCompInp1(frm_CompInp1& form) {
    wireFrame(form);
    form.onLoad = [&form] { Form_Load(form, [&form] { return keepEditionAssociation(form); }); };
    form.cbo_License_No.onClick = [&form] { cbo_License_No_Click(form); };
    form.cbo_Dantai_Name.onClick = [&form] { cbo_Dantai_Name_Click(form); };
    form.txt_Other_Dantai_Name.onChange = [&form] { txt_Other_Dantai_Name_Change(form); };
    form.txt_Other_Dantai_Name.onValidate = [&form] { txt_Other_Dantai_Name_Validate(form); };
    for (int i = 0; i < static_cast<int>(form.chk_Dantai.size()); ++i) {
        form.chk_Dantai[static_cast<std::size_t>(i)].onClick = [&form, i] { chk_Dantai_Click(form, i); };
    }
    for (int i = 0; i < static_cast<int>(form.chk_Koutori.size()); ++i) {
        form.chk_Koutori[static_cast<std::size_t>(i)].onClick = [&form, i] { chk_Koutori_Click(form, i); };
    }
    for (ComboBox* combo :
         {&form.cbo_License_No, &form.cbo_Get_License_Nengou, &form.cbo_Valid_License_Nengou, &form.cbo_Dantai_Name}) {
        combo->onKeyDown = [&form, combo](int key) { enterMovesOn(form, *combo, key); };
    }
}

}  // namespace orv
