#include "validation/check_input_data.h"

#include "core/record/globals.h"
#include "logging/messages.h"
#include "logging/trap.h"
#include "pages/forms/control_helpers.h"
#include "pages/frame/page_frame.h"
#include "platform/forms/form_host.h"
#include "platform/scope.h"
#include "platform/services.h"
#include "validation/rules/rule.h"

namespace orv {
namespace {

void restorePointer() { services().forms->setPointer(kPointerDefault); }

void showFault(const PageEntry& page, PageForm& currentForm, const Refusal& refusal) {
    if (!PF_Change_Frm_CompInp(static_cast<std::int16_t>(page.number), currentForm)) {
        return;
    }
    PF_SetFocusTo(refusal.focus);
    if (refusal.focus != nullptr) {
        refusal.focus->setFault(refusal.text);
    }
    restorePointer();
    showMessage("COS19800", {refusal.text});
}

/// Checks the pages in their order, independent of the current page. Returns the first that fails, or null if all pass.
const PageEntry* findFailingPage(Refusal& refusal) {
    const FlagGuard checking(gChecking);
    for (const PageEntry& page : pageEntries()) {
        refusal.text.clear();
        if (page.check != nullptr && !page.check(refusal)) {
            return &page;
        }
    }
    return nullptr;
}

bool checkPages(PageForm& currentForm) {
    Refusal refusal;
    const PageEntry* const page = findFailingPage(refusal);
    if (page != nullptr) {
        showFault(*page, currentForm, refusal);
    }
    return page == nullptr;
}

}  // namespace

bool PF_CheckInputData(PageForm& currentForm) {
    return trapped("[ PF_CheckInputData ] ", [&] {
        bool passed = false;
        // Restores the pointer before a failure is reported.
        if (const auto failure = caught([&] { passed = checkPages(currentForm); })) {
            restorePointer();
            throw *failure;
        }
        return passed;
    });
}

}  // namespace orv
