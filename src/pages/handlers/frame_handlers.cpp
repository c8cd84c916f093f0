#include "pages/handlers/frame_handlers.h"

#include "core/flow/leaving.h"
#include "core/record/globals.h"
#include "logging/handled.h"
#include "logging/trap.h"
#include "pages/forms/enter_key.h"
#include "pages/forms/page_set.h"
#include "pages/frame/change_page.h"
#include "pages/frame/page_start.h"
#include "pages/handlers/help_key.h"
#include "pages/handlers/save_button.h"
#include "pages/handlers/switch_company.h"
#include "platform/forms/form_host.h"
#include "platform/machine/sibling_desk.h"
#include "platform/services.h"

namespace orv {
namespace {

std::string label(const PageForm& form, const char* handler) { return "[ " + form.tag() + " " + handler + " ]"; }

}  // namespace

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
