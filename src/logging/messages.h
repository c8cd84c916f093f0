#pragma once

#include <string>

#include "platform/value.h"

namespace orv {

/// Shows a message. Ignores a failure to show it.
void showMessage(const std::string& id, const Values& args = {});

/// Asks a question. False if the operator wants to keep the present state.
[[nodiscard]] bool confirm(const std::string& id, const Values& args = {});

/// Shows a message. On false the pair holds the service's failure.
[[nodiscard]] bool showOrFail(const std::string& id, const Values& args);

}  // namespace orv
