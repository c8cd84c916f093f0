#pragma once

namespace orv {

/// Checks the password dialog against the record and puts an accepted password in the record; the next save stores it.
/// Shows a rejection and focuses the field. On false the dialog's `refused` is set, or the check failed and the pair
/// holds the failure.
[[nodiscard]] bool PF_CheckPwd();

}  // namespace orv
