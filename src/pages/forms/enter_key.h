#pragma once

#include "pages/forms/page_form.h"

namespace orv {

/// Handles KeyDown of a field: Enter moves the focus as Tab does. Other keys are ignored.
void enterMovesOn(const PageForm& form, Control& control, int key);

}  // namespace orv
