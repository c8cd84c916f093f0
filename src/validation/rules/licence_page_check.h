#pragma once

#include "validation/rule/rule.h"

namespace orv {

/// The check of page 1: the broker's licence, then the associations and councils. False: `out` says what is wrong, or a
/// run-time failure (an expiry date that can't be read, say) is told by the pair.
[[nodiscard]] bool PF_CheckFrmCompInp1Data(Refusal& out);

}  // namespace orv
