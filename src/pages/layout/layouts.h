#pragma once

#include <span>
#include <string_view>

#include "platform/design.h"

namespace orv {

/// Where the controls of a form stand, found by the form's name; empty for a form that nobody has laid out.
std::span<const Placement> layoutOf(std::string_view form);

}  // namespace orv
