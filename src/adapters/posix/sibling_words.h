#pragma once

#include <string_view>

#include "platform/machine/sibling_programs.h"

namespace orv {

/// Does what a sibling program's line, without its line break, says:
///   TEXT handle text    the text, which may be empty, is for that control
///   KEY handle code     that key is pressed on that control
/// Handles and codes are decimal. False: the line is no such line, or was refused.
[[nodiscard]] bool handleLine(std::string_view line, const SiblingCalls& calls);

}  // namespace orv
