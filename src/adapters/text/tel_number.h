#pragma once

#include <string_view>

namespace orv {

enum class TelFault { None, Empty, Characters, Leading, Digits, Hyphens };

/// Returns the first fault of a Japanese telephone or fax number in half-width digits. Hyphens are optional, but must
/// be at the places of its kind of number.
TelFault telFaultOf(std::string_view text);

}  // namespace orv
