#pragma once

#include <functional>
#include <string_view>

#include "pages/forms/page_form.h"
#include "platform/forms/form.h"

namespace orv {

/// On F1 shows the help text of the control with the focus, or of the form if none has the focus.
void helpOnF1(const Form& form, int key, std::string_view label);

/// Saves, shows the current company afterwards, and reports failures.
void btm_Save_Click(PageForm& form);

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

/// Called when another company is selected in the list. Asks (unless a save is running), moves the lock, loads the
/// company and fills the page. If the switch is refused, restores the list.
void cbo_User_Id_Click(PageForm& form);

}  // namespace orv
