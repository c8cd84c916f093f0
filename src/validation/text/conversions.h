#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace orv {

// The plain conversions of the system. A text that is none of the wanted kind is failure 13, a number out of its
// kind's range failure 6, a null failure 94.

/// A decimal number with blanks around it.
double toNumber(std::string_view text);
/// Rounded to a whole number of 32 bits, a half to the even neighbour.
std::int32_t toLong(std::string_view text);
std::int32_t toLong(double number);
/// The same in 16 bits.
std::int16_t toInteger(double number);
/// "True" and "False" without regard to case, or a number: anything but zero is true.
bool toBoolean(const Value& value);
/// Whether a plain conversion to a number succeeds.
bool isNumeric(std::string_view text);

}  // namespace orv
