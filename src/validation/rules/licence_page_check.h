#pragma once

#include "validation/rules/rule.h"

namespace orv {

/// Checks page 1: the broker's licence, then the associations and councils. On false `out` holds the message, or the
/// pair holds a run-time failure, such as an expiry date that cannot be read.
[[nodiscard]] bool PF_CheckFrmCompInp1Data(Refusal& out);

}  // namespace orv
