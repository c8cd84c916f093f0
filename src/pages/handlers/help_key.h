#pragma once

#include <string_view>

#include "platform/forms/form.h"

namespace orv {

/// On F1 shows the help text of the control with the focus, or of the form if none has the focus.
void helpOnF1(const Form& form, int key, std::string_view label);

}  // namespace orv
