#pragma once

#include <span>
#include <string_view>

#include "platform/design.h"

namespace orv {

/// Returns the placements of a form by its name, or none for an unknown form.
std::span<const Placement> findLayout(std::string_view form);

}  // namespace orv
