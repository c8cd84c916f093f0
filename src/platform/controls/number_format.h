#pragma once

#include <string>
#include <string_view>

#include "platform/value.h"

namespace orv {

/// Formats a number or null. The format has up to four sections separated by ";": positive, negative, zero and null. If
/// the second or third section is empty or missing, the first is used; without the fourth, null gives "". In a section
/// "0" is a digit that is always shown, "#" a digit that is shown if the number has it. A point without a digit after
/// it is omitted. An empty format gives the plain number.
std::string formatNumber(const Value& number, std::string_view format);

}  // namespace orv
