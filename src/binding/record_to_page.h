#pragma once

namespace orv {

// Show the record on a page and set the page's state from it. A value that a control refuses does not stop the fill:
// the operator is told all of them at its end. False: a failure, told by the pair.

[[nodiscard]] bool PF_SetData_Frm_CompInp0();
[[nodiscard]] bool PF_SetData_Frm_CompInp1();
[[nodiscard]] bool PF_SetData_Frm_CompInp2();
[[nodiscard]] bool PF_SetData_Frm_CompInp3();
[[nodiscard]] bool PF_SetData_Frm_CompInp4();

/// The one of that page number.
[[nodiscard]] bool showRecordOn(int pageNumber);

}  // namespace orv
