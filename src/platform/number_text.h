#pragma once

#include <optional>
#include <string_view>

namespace orv {

/// A decimal number with blanks around it, a sign, digits, a point, an exponent; nothing else is a number.
std::optional<double> readNumber(std::string_view text);

}  // namespace orv
