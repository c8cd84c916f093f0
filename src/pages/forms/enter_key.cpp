#include "pages/forms/enter_key.h"

#include "logging/handled.h"

namespace orv {

void enterMovesOn(const PageForm& form, Control& control, int key) {
    handled("[ " + form.tag() + " " + control.name() + "_KeyDown ]", [&] {
        if (key == kKeyEnter) {
            control.owner().focusNext();
        }
        return true;
    });
}

}  // namespace orv
