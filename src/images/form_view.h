#pragma once

#include "platform/forms/form.h"

namespace orv {

/// Puts the form into the middle of the screen and in front of the others.
void PS_SetFormCenter(Form& form);

/// Clears the form and draws the stripes that all its windows have.
void drawStripes(Form& form);

}  // namespace orv
