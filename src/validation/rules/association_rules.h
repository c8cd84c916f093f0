#pragma once

#include "validation/rules/rule.h"

namespace orv {

/// Checks the second half of page 1: the associations, and whether the council of each one's region is ticked. The
/// operator can accept a missing council.
[[nodiscard]] bool associationsPass(Refusal& out);

}  // namespace orv
