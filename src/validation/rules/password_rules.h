#pragma once

namespace orv {

/// Checks what stands in the password dialog against the record, and puts an accepted password into the record; the
/// store gets it with the next save. A refusal is shown here, and the focus goes to the field at fault. False:
/// `refused` of the dialog is set, or the check failed and the pair says why.
[[nodiscard]] bool PF_CheckPwd();

}  // namespace orv
