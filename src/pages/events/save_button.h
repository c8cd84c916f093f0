#pragma once

#include "pages/controls/page_form.h"

namespace orv {

/// Saves, shows the company in force afterwards, and reports what went wrong.
void btm_Save_Click(PageForm& form);

}  // namespace orv
