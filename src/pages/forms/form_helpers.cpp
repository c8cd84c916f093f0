#include "pages/forms/form_helpers.h"

#include "logging/handled.h"
#include "platform/design.h"
#include "platform/machine/window_system.h"
#include "platform/services.h"

namespace orv {
namespace {

constexpr int kStripeStep = 3;

}  // namespace

void PS_SetFormCenter(Form& form) { services().windows->centre(form); }

void drawStripes(Form& form) {
    form.canvas().clear(kPageBack);
    for (int y = 0; y <= form.scaleHeight(); y += kStripeStep) {
        form.canvas().draw(DrawnLine{{0, y}, {form.scaleWidth(), y}, kGroupBox});
    }
}

void enterMovesOn(const PageForm& form, Control& control, int key) {
    handled("[ " + form.tag() + " " + control.name() + "_KeyDown ]", [&] {
        if (key == kKeyEnter) {
            control.owner().focusNext();
        }
    });
}

void showTick(CheckBox& box) {
    const bool on = box.value() == 1;
    box.setBackColour(on ? kTickOn : kTickOff);
    box.setForeColour(on ? kTickOnText : kTickOffText);
}

}  // namespace orv
