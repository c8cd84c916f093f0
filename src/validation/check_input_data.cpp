#include "validation/check_input_data.h"

#include <array>
#include <optional>

#include "core/record/globals.h"
#include "logging/messages.h"
#include "logging/trap.h"
#include "pages/forms/control_helpers.h"
#include "pages/frame/page_frame.h"
#include "platform/forms/form_host.h"
#include "platform/scope.h"
#include "platform/services.h"
#include "validation/rules/page_checks.h"

namespace orv {
namespace {

struct PageCheck {
    std::int16_t page;
    bool (*check)(Refusal& out);
};

/// The order of the checks, independent of the current page.
constexpr auto kChecks = std::to_array<PageCheck>(
    {{0, PF_CheckFrmCompInp0Data}, {1, PF_CheckFrmCompInp1Data}, {2, PF_CheckFrmCompInp2Data}});

void pointerBack() { services().forms->setPointer(kPointerDefault); }

void showFault(std::int16_t page, PageForm& currentForm, const Refusal& refusal) {
    if (!PF_Change_Frm_CompInp(page, currentForm)) {
        return;
    }
    PF_SetFocusTo(refusal.focus);
    if (refusal.focus != nullptr) {
        refusal.focus->setFault(refusal.text);
    }
    pointerBack();
    showMessage("COS19800", {refusal.text});
}

/// Returns the first page that fails, or nothing if all pass.
std::optional<std::int16_t> failingPage(Refusal& refusal) {
    const FlagGuard checking(gChecking);
    for (const PageCheck& page : kChecks) {
        refusal.text.clear();
        if (!page.check(refusal)) {
            return page.page;
        }
    }
    return std::nullopt;
}

bool checkPages(PageForm& currentForm) {
    Refusal refusal;
    const std::optional<std::int16_t> page = failingPage(refusal);
    if (page) {
        showFault(*page, currentForm, refusal);
    }
    return !page;
}

}  // namespace

bool PF_CheckInputData(PageForm& currentForm) {
    return trapped("[ PF_CheckInputData ] ", [&] {
        bool passed = false;
        // Restores the pointer before a failure is reported.
        if (const auto failure = caught([&] { passed = checkPages(currentForm); })) {
            pointerBack();
            throw *failure;
        }
        return passed;
    });
}

}  // namespace orv
