#pragma once

#include <cstdint>

#include "pages/forms/page_form.h"
#include "pages/forms/page_set.h"

namespace orv {

/// Copies the current page to the record, shows the page with that number and unloads the current one. For the current
/// page's own number only copies to the record. On false the pair holds the failure, and the current page stays.
[[nodiscard]] bool PF_Change_Frm_CompInp(std::int16_t target, PageForm& current);

/// Loads and shows the target, which starts it, and unloads the current page.
[[nodiscard]] bool PF_ShowTargetForm(PageForm& target, PageForm& current);

// Fill the lists of a page from the store and stop at the first failure. On false the pair holds the failure.

[[nodiscard]] bool P_MakeComboBox_CompInp0();
[[nodiscard]] bool P_MakeComboBox_CompInp1();
[[nodiscard]] bool P_MakeComboBox_CompInp2();
[[nodiscard]] bool P_MakeComboBox_CompInp3();
[[nodiscard]] bool P_MakeComboBox_CompInp4();

/// Starts a page when it is loaded: position, background, title, lists, data. True if the page is ready. On false the
/// pair holds the failure.
[[nodiscard]] bool startPage(PageForm& form);

/// Shows the company in the titles of window and page, and whether it is a member of the listing service.
void showTitle(PageForm& form);

// The drawing below a page's controls: stripes, upper and lower band, title, bars and boxes.

[[nodiscard]] bool P_MakeComp0View();
[[nodiscard]] bool P_MakeComp1View();
[[nodiscard]] bool P_MakeComp2View();
[[nodiscard]] bool P_MakeComp3View();
[[nodiscard]] bool P_MakeComp4View();

}  // namespace orv
