#pragma once

#include "platform/forms/form.h"

namespace orv {

/// Moves the form to the middle of the screen and raises it.
void PS_SetFormCenter(Form& form);

/// Clears the form and draws the stripes common to all windows.
void drawStripes(Form& form);

}  // namespace orv
