#pragma once

#include <string>

#include "platform/value.h"

namespace orv {

/// Shows a message; that it could not be shown is nobody's business here.
void tell(const std::string& id, const Values& args = {});

/// Asks, and tells whether the operator wants the present state to stay.
[[nodiscard]] bool staysAfter(const std::string& id, const Values& args = {});

/// Shows a message; false when that failed, with the service's failure in the pair.
[[nodiscard]] bool showOrFail(const std::string& id, const Values& args);

}  // namespace orv
