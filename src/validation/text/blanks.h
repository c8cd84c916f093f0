#pragma once

#include <string>
#include <string_view>

#include "platform/value.h"

namespace orv {

/// Without leading and trailing ASCII blanks.
std::string trimmed(std::string_view text);

/// Without trailing ASCII blanks.
std::string trimmedRight(std::string_view text);

/// Nothing but blanks, the ideographic one included: clerks type it without noticing.
bool isBlank(std::string_view text);

/// A database null gives `fallback`, anything else its text without trailing blanks.
std::string PF_NullToStr(const Value& value, const std::string& fallback);

}  // namespace orv
