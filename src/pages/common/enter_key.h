#pragma once

#include "pages/controls/page_form.h"

namespace orv {

/// The KeyDown of a field from which Enter moves on, as Tab does. Other keys are left alone.
void enterMovesOn(const PageForm& form, Control& control, int key);

}  // namespace orv
