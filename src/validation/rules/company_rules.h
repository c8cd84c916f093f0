#pragma once

#include "validation/rule/rule.h"

namespace orv {

/// The check of page 0: the company, its address and persons, and the site of the computer. False: `out` says what is
/// wrong, or a run-time failure is told by the pair.
[[nodiscard]] bool PF_CheckFrmCompInp0Data(Refusal& out);

}  // namespace orv
