#pragma once

#include "validation/rule/rule.h"

namespace orv {

/// The check of page 2: the way to the office, the free texts, the home page and the photos. Empties the codes for "no
/// line" and "no station" and an address of nothing but its prefix, also when a rule fails. False: `out` says what is
/// wrong, or a run-time failure is told by the pair.
[[nodiscard]] bool PF_CheckFrmCompInp2Data(Refusal& out);

}  // namespace orv
