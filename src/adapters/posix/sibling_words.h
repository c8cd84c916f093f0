#pragma once

#include <string_view>

#include "platform/machine/sibling_programs.h"

namespace orv {

/// Handles a line of a sibling program, given without its line break:
///   TEXT handle text    sets the text, which can be empty, of that control
///   KEY handle code     presses that key on that control
/// Handles and codes are decimal. False if the line has another form or was rejected.
[[nodiscard]] bool handleLine(std::string_view line, const SiblingCalls& calls);

}  // namespace orv
