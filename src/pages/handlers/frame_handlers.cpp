#include "pages/handlers/frame_handlers.h"

#include "core/flow/leaving.h"
#include "core/flow/save_company.h"
#include "core/record/globals.h"
#include "logging/handled.h"
#include "logging/trap.h"
#include "pages/forms/form_helpers.h"
#include "pages/forms/page_set.h"
#include "pages/frame/page_frame.h"
#include "platform/controls/captions.h"
#include "platform/forms/form_host.h"
#include "platform/machine/sibling_programs.h"
#include "platform/scope.h"
#include "platform/services.h"
#include "platform/suite/help_service.h"

namespace orv {
namespace {

constexpr const char* kHelpGroup = "SSX";

/// Returns the name of the control with the focus, or of the form if the page has no field. The page's own button then
/// has the focus.
const std::string& helpSubject(const Form& form) {
    const Control* active = form.activeControl();
    return active == nullptr || active == form.restingControl() ? form.name() : active->name();
}

/// Does nothing if the save has moved to another page. If the company received its number, switches to it without
/// asking.
void switchToNewNumber(PageForm& form, const std::string& userId) {
    if (!userId.empty() && form.activeControl() != nullptr) {
        form.cbo_User_Id.setText(userId);
    }
}

std::string label(const PageForm& form, const char* handler) { return "[ " + form.tag() + " " + handler + " ]"; }

}  // namespace

void helpOnF1(const Form& form, int key, std::string_view label) {
    if (key != kKeyF1) {
        return;
    }
    handled(label, [&form] {
        HelpService& help = *services().help;
        return help.ShowHelp(helpSubject(form), kHelpGroup) || failFrom(help.ErrorInfo());
    });
}

void btm_Save_Click(PageForm& form) {
    const FlagGuard saving(gSaving);
    handled(label(form, "btm_Save_Click"), [&] {
        std::string userId;
        if (PF_SndCos(form, userId)) {
            switchToNewNumber(form, userId);
            return true;
        }
        // Reports the save's own failure, even if the switch to the new number changes the pair.
        const PairKeeper own;
        static_cast<void>(caught([&] { switchToNewNumber(form, userId); }));
        return false;
    });
}

void Form_Load(PageForm& form, const std::function<bool()>& afterwards) {
    const bool fine =
        trapped(label(form, "Form_Load"), [&] { return startPage(form) && (!afterwards || afterwards()); });
    if (!fine) {
        form.failure = {gErrMsg, gErrCode};
        report();
    }
}

void btm_ChangePage_Click(PageForm& form, int index) {
    handled(label(form, "btm_ChangePage_Click"),
            [&] { return PF_Change_Frm_CompInp(static_cast<std::int16_t>(index), form); });
}

void btm_Back_Menu_Click(PageForm& form) {
    handled(label(form, "btm_Back_Menu_Click"), [&] {
        if (!wantsToLeave()) {
            return true;
        }
        if (!releaseAndStartCaller()) {
            return false;
        }
        services().forms->unload(form, UnloadMode::Code);
        return PF_Form_Clean();
    });
}

void cbo_User_Id_KeyDown(PageForm& form, int key) { enterMovesOn(form, form.cbo_User_Id, key); }

void Form_QueryUnload(PageForm&, bool& cancel, UnloadMode mode) {
    if (mode == UnloadMode::Code) {
        return;
    }
    cancel = true;
    handled("[ Form_QueryUnload ]", [&] {
        if (!wantsToLeave()) {
            return true;
        }
        if (!releaseAndStartCaller()) {
            return false;
        }
        cancel = false;
        return PF_Form_Clean();
    });
}

void Form_Unload(PageForm& form) {
    services().siblings->dismiss();
    dropPage(form);
}

void wireFrame(PageForm& form) {
    form.onQueryUnload = [&form](bool& cancel, UnloadMode mode) { Form_QueryUnload(form, cancel, mode); };
    form.onUnload = [&form] { Form_Unload(form); };
    form.onKeyDown = [&form](int key) { helpOnF1(form, key, label(form, "Form_KeyDown")); };
    for (int i = 0; i < kPageCount; ++i) {
        form.btm_ChangePage[static_cast<std::size_t>(i)].onClick = [&form, i] { btm_ChangePage_Click(form, i); };
    }
    form.btm_Save.onClick = [&form] { btm_Save_Click(form); };
    form.btm_Back_Menu.onClick = [&form] { btm_Back_Menu_Click(form); };
    form.cbo_User_Id.onClick = [&form] { cbo_User_Id_Click(form); };
    form.cbo_User_Id.onKeyDown = [&form](int key) { cbo_User_Id_KeyDown(form, key); };
}

}  // namespace orv
