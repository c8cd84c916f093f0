#pragma once

namespace orv {

/// Checks what stands in the password dialog against the record, and puts an accepted password into the record; the
/// store gets it with the next save. A refusal is shown here, and the focus goes to the field at fault. False: refused,
/// or the pair tells that the message could not be shown or what else failed.
[[nodiscard]] bool PF_CheckPwd();

}  // namespace orv
