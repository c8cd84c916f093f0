#pragma once

#include "pages/forms/page_form.h"

namespace orv {

/// Called when another company is selected in the list. Asks (unless a save is running), moves the lock, loads the
/// company and fills the page. If the switch is refused, restores the list.
void cbo_User_Id_Click(PageForm& form);

}  // namespace orv
