#pragma once

#include "validation/rules/rule.h"

namespace orv {

/// Checks the first half of page 1: the broker's licence with its number and its two dates. A landlord or a company
/// without a licence leaves them empty.
[[nodiscard]] bool licencePasses(Refusal& out);

}  // namespace orv
