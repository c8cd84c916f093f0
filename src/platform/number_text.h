#pragma once

#include <optional>
#include <string_view>

namespace orv {

/// Returns nothing unless the text is a decimal number: sign, digits, point and exponent, with blanks around it.
std::optional<double> readNumber(std::string_view text);

}  // namespace orv
