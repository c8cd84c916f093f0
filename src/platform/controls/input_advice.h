#pragma once

#include <string>

#include "platform/controls/number_input.h"
#include "platform/controls/text_input.h"

namespace orv {

// Sentences for the operator. Empty: there is nothing to say.

/// How much the field takes.
std::string limitAdvice(const TextDesign& design);

/// Which number the field takes.
std::string rangeAdvice(const NumberDesign& design);

/// Why the field does not take all of a committed text when `kept` is in it already. Empty if it takes all.
std::string refusalAdvice(const TextDesign& design, const std::string& kept, const std::string& committed);

}  // namespace orv
