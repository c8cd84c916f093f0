#pragma once

#include <string>
#include <string_view>

#include "platform/value.h"

namespace orv {

/// Returns the text without leading and trailing ASCII blanks.
std::string trimmed(std::string_view text);

/// Returns the text without trailing ASCII blanks.
std::string trimmedRight(std::string_view text);

/// True if the text contains only blanks, including the ideographic blank, which is easily typed unnoticed.
bool isBlank(std::string_view text);

/// Returns `fallback` for a database null, otherwise the text without trailing blanks.
std::string PF_NullToStr(const Value& value, const std::string& fallback);

}  // namespace orv
