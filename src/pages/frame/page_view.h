#pragma once

#include "pages/forms/page_set.h"

namespace orv {

// The drawing below a page's controls: stripes, upper and lower band, title, bars and boxes.

[[nodiscard]] bool P_MakeComp0View(frm_CompInp0& form);
[[nodiscard]] bool P_MakeComp1View(frm_CompInp1& form);
[[nodiscard]] bool P_MakeComp2View(frm_CompInp2& form);
[[nodiscard]] bool P_MakeComp3View(frm_CompInp3& form);
[[nodiscard]] bool P_MakeComp4View(frm_CompInp4& form);

/// Draws the page with that number.
[[nodiscard]] bool makeViewOf(int pageNumber);

}  // namespace orv
