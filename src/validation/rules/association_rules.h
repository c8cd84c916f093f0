#pragma once

#include "validation/rule/rule.h"

namespace orv {

/// The second half of page 1: the associations, and whether the council of each one's region is ticked. A council that
/// is missing is a question, which the operator can wave through.
[[nodiscard]] bool associationsPass(Refusal& out);

}  // namespace orv
