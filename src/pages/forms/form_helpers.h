#pragma once

#include "pages/forms/page_form.h"
#include "platform/controls/check_box.h"
#include "platform/forms/form.h"

namespace orv {

/// Moves the form to the middle of the screen and raises it.
void PS_SetFormCenter(Form& form);

/// Clears the form and draws the stripes common to all windows.
void drawStripes(Form& form);

/// Handles KeyDown of a field: Enter moves the focus as Tab does. Other keys are ignored.
void enterMovesOn(const PageForm& form, Control& control, int key);

/// Gives a box the colours of its state: on, or any other.
void showTick(CheckBox& box);

}  // namespace orv
