#pragma once

#include "pages/controls/page_form.h"

namespace orv {

/// The company list has been set to another company: asks (unless a save is running), moves the lock, loads the company
/// and fills the page with it. A refusal puts the list back.
void cbo_User_Id_Click(PageForm& form);

}  // namespace orv
