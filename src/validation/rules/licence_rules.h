#pragma once

#include "validation/rule/rule.h"

namespace orv {

/// The first half of page 1: the broker's licence with its number and its two dates. A landlord, and a company without
/// a licence, leave all of it empty.
[[nodiscard]] bool licencePasses(Refusal& out);

}  // namespace orv
