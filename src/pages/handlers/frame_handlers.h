#pragma once

#include <functional>

#include "pages/forms/page_form.h"

namespace orv {

// The common event handlers of every page. Failure texts contain the page's tag.

/// Starts the page. `afterwards` runs once it is ready.
void Form_Load(PageForm& form, const std::function<bool()>& afterwards = {});
void btm_ChangePage_Click(PageForm& form, int index);
void btm_Back_Menu_Click(PageForm& form);
void cbo_User_Id_KeyDown(PageForm& form, int key);
/// Keeps the form loaded by setting `cancel`.
void Form_QueryUnload(PageForm& form, bool& cancel, UnloadMode mode);
void Form_Unload(PageForm& form);

/// Connects these handlers, the save button, the company list and the Enter key there.
void wireFrame(PageForm& form);

}  // namespace orv
