#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace orv {

// The plain conversions of the system. Failure 13 for a text of another kind, 6 for a number out of range, 94 for a
// null.

/// Converts a decimal number with blanks around it.
double toNumber(std::string_view text);
/// Rounds to a 32-bit integer, halves to even.
std::int32_t toLong(std::string_view text);
std::int32_t toLong(double number);
/// Rounds to a 16-bit integer, halves to even.
std::int16_t toInteger(double number);
/// Converts "True" and "False", in upper or lower case, or a number; any number except zero is true.
bool toBoolean(const Value& value);
/// True if the plain conversion to a number succeeds.
bool isNumeric(std::string_view text);

}  // namespace orv
