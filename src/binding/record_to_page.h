#pragma once

namespace orv {

// Show the record on a page and set the page's state. A value that a control rejects does not stop the fill; the
// operator sees all of them at the end. On false the pair holds the failure.

[[nodiscard]] bool PF_SetData_Frm_CompInp0();
[[nodiscard]] bool PF_SetData_Frm_CompInp1();
[[nodiscard]] bool PF_SetData_Frm_CompInp2();
[[nodiscard]] bool PF_SetData_Frm_CompInp3();
[[nodiscard]] bool PF_SetData_Frm_CompInp4();

}  // namespace orv
