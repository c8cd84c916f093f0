#pragma once

#include "pages/forms/page_form.h"

namespace orv {

/// Saves, shows the current company afterwards, and reports failures.
void btm_Save_Click(PageForm& form);

}  // namespace orv
