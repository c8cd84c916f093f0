#pragma once

#include <string>

#include "platform/controls/number_input.h"
#include "platform/controls/text_input.h"

namespace orv {

// Texts that help the operator. An empty text means that there is nothing to show.

/// Returns how much the field accepts.
std::string limitAdvice(const TextDesign& design);

/// Returns which numbers the field accepts.
std::string rangeAdvice(const NumberDesign& design);

/// Returns why the field, which contains `kept`, does not accept all of a committed text, or "" if it does.
std::string refusalAdvice(const TextDesign& design, const std::string& kept, const std::string& committed);

}  // namespace orv
