#pragma once

#include <cstdint>

#include "pages/forms/page_form.h"

namespace orv {

/// Copies the current page to the record, shows the page with that number and unloads the current one. For the current
/// page's own number only copies to the record. On false the pair holds the failure, and the current page stays.
[[nodiscard]] bool PF_Change_Frm_CompInp(std::int16_t target, PageForm& current);

/// Loads and shows the target, which starts it, and unloads the current page.
[[nodiscard]] bool PF_ShowTargetForm(PageForm& target, PageForm& current);

}  // namespace orv
