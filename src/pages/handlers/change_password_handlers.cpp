#include "pages/handlers/page_handlers.h"

#include "logging/handled.h"
#include "pages/forms/form_helpers.h"
#include "pages/forms/page_set.h"
#include "pages/handlers/frame_handlers.h"
#include "platform/forms/form_host.h"
#include "platform/services.h"
#include "validation/rules/page_checks.h"

namespace orv {
namespace {

/// All three handlers use the same label, and must.
constexpr const char* kLabel = "[ ChangePassword btm_Cancel_Click ]";

void drawEdge(Form& form) {
    form.canvas().clear(kPageBack);
    form.canvas().draw(DrawnBox{{0, 0, form.scaleWidth(), form.scaleHeight()}, kGroupBox, false});
}

void close(frm_ChangePassword& dialog) { services().forms->unload(dialog, UnloadMode::Code); }

void keyDown(frm_ChangePassword& dialog, int key) {
    if (key == kKeyEnter) {
        dialog.btm_Entry.press();
    } else {
        helpOnF1(dialog, key, kLabel);
    }
}

}  // namespace

void Form_Load(frm_ChangePassword& dialog) {
    handled(kLabel, [&] {
        PS_SetFormCenter(dialog);
        drawEdge(dialog);
        for (std::size_t i = 0; i < dialog.txt_Password.size(); ++i) {
            dialog.txt_Password[i].setText("");
        }
        dialog.ready = true;
    });
}

void btm_Entry_Click(frm_ChangePassword& dialog) {
    handled(kLabel, [&] {
        if (PF_CheckPwd()) {
            close(dialog);
            return true;
        }
        return dialog.refused;
    });
}

void btm_Cancel_Click(frm_ChangePassword& dialog) {
    handled(kLabel, [&] { close(dialog); });
}

void wireChangePassword(frm_ChangePassword& dialog) {
    dialog.onLoad = [&dialog] { Form_Load(dialog); };
    dialog.onUnload = [&dialog] { dropPage(dialog); };
    dialog.onKeyDown = [&dialog](int key) { keyDown(dialog, key); };
    dialog.btm_Entry.onClick = [&dialog] { btm_Entry_Click(dialog); };
    dialog.btm_Cancel.onClick = [&dialog] { btm_Cancel_Click(dialog); };
}

}  // namespace orv
