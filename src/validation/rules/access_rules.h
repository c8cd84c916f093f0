#pragma once

#include "validation/rules/rule.h"

namespace orv {

/// Checks page 2: access to the office, free texts, home page and photos. Empties the codes for "no line" and "no
/// station" and an address that is only its prefix, even if a rule fails. On false `out` holds the message, or the pair
/// holds a run-time failure.
[[nodiscard]] bool PF_CheckFrmCompInp2Data(Refusal& out);

}  // namespace orv
