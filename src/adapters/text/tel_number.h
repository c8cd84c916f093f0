#pragma once

#include <string_view>

namespace orv {

enum class TelFault { None, Empty, Characters, Leading, Digits, Hyphens };

/// The first thing that keeps a text from being a Japanese telephone or fax number in half-width digits, with hyphens
/// where its kind of number can have them, or without.
TelFault telFaultOf(std::string_view text);

}  // namespace orv
