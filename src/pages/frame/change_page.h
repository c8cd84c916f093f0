#pragma once

#include <cstdint>

#include "pages/controls/page_form.h"

namespace orv {

/// Takes the current page into the record and brings the page of that number to the screen; the current one goes. The
/// own page's number only takes it into the record. False: the pair tells why, and the current page stays.
[[nodiscard]] bool PF_Change_Frm_CompInp(std::int16_t target, PageForm& current);

/// Loads and shows the target, which starts it, and unloads the current page.
[[nodiscard]] bool PF_ShowTargetForm(PageForm& target, PageForm& current);

}  // namespace orv
