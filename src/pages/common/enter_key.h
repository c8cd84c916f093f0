#pragma once

#include "platform/controls/control.h"

namespace orv {

/// Enter moves on from the control, as Tab does. Other keys are left alone.
inline void enterMovesOn(Control& control, int key) {
    if (key == kKeyEnter) {
        control.owner().focusNext();
    }
}

}  // namespace orv
