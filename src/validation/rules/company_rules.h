#pragma once

#include "validation/rules/rule.h"

namespace orv {

/// Checks page 0: the company, its address and persons, and the site of the computer. On false `out` holds the message,
/// or the pair holds a run-time failure.
[[nodiscard]] bool PF_CheckFrmCompInp0Data(Refusal& out);

}  // namespace orv
