#pragma once

#include <string>
#include <string_view>

#include "platform/value.h"

namespace orv {

/// A number, or null, in a format of up to four sections that ";" separates: for a positive number, a negative one,
/// zero and null. Where the second or the third section is empty or missing, the first one counts; without the fourth,
/// null shows nothing. In a section "0" is a digit that is always shown, "#" one that is shown where the number has it;
/// a point with no digit after it is left out. An empty format shows the plain number.
std::string formatNumber(const Value& number, std::string_view format);

}  // namespace orv
