#include "binding/record_to_page.h"

#include <string>

#include "binding/binding_row.h"
#include "core/record/globals.h"
#include "logging/messages.h"
#include "logging/setting_trap.h"
#include "logging/trap.h"
#include "pages/forms/control_helpers.h"
#include "platform/scope.h"

namespace orv {
namespace {

/// Clears the page, so that it does not show values of the previous company.
void emptyPage(PageForm& form, const PageBinding& binding) {
    for (Control* control : form.controls()) {
        if (control != &form.cbo_User_Id) {
            control->reset();
        }
    }
    for (const BindingRow& row : binding.rows()) {
        const TypedControl control = row.control().self();
        if (Label* const* label = std::get_if<Label*>(&control)) {
            (*label)->setCaption("");
        }
    }
}

void showCompanyNumber(PageForm& form) {
    form.cbo_User_Id.setVisible(gMultiCompany);
    form.lbl_UserId.setVisible(!gMultiCompany);
    form.lbl_UserId.setCaption(tCustomerInfo.USER_ID);
    const FlagGuard byCode(form.companySetByCode);
    PF_SetControlValue(form.cbo_User_Id, tCustomerInfo.USER_ID);
}

bool fill(PageForm& form, const PageBinding& binding) {
    emptyPage(form, binding);
    showCompanyNumber(form);
    for (const Step& place : binding.toPage()) {
        if (place.named != nullptr) {
            if (!place.named()) {
                return false;
            }
        } else {
            const TextField field = place.fields[0];
            PF_SetControlValue(findRow(binding.rows(), field).control(), tCustomerInfo.*field);
        }
    }
    return true;
}

bool show(int pageNumber) {
    const std::string label = "[ PF_SetData_Frm_CompInp" + std::to_string(pageNumber) + " ] ";
    return trapped(label, [&] {
        gErrItems.clear();
        const PageEntry& page = pageEntry(pageNumber);
        if (!withFieldNames([&] { return withSettings([&] { return fill(page.form(), *page.binding); }); })) {
            return false;
        }
        if (!gErrItems.empty()) {
            showMessage("ESSX5050", {gErrItems});
        }
        return true;
    });
}

}  // namespace

bool PF_SetData_Frm_CompInp0() { return show(0); }
bool PF_SetData_Frm_CompInp1() { return show(1); }
bool PF_SetData_Frm_CompInp2() { return show(2); }
bool PF_SetData_Frm_CompInp3() { return show(3); }
bool PF_SetData_Frm_CompInp4() { return show(4); }

}  // namespace orv
