#pragma once

#include <string>
#include <string_view>

#include "platform/value.h"

namespace orv {

/// True if the text contains only blanks, including the ideographic blank, which is easily typed unnoticed.
bool isBlank(std::string_view text);

/// Returns `fallback` for a database null, otherwise the text without trailing ASCII blanks.
std::string PF_NullToStr(const Value& value, const std::string& fallback);

}  // namespace orv
