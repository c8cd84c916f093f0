#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace orv {

/// True if the text contains only blanks, including the ideographic blank, which is easily typed unnoticed.
bool isBlank(std::string_view text);

/// Returns `fallback` for a database null, otherwise the text without trailing ASCII blanks.
std::string PF_NullToStr(const Value& value, const std::string& fallback);

// Lengths and positions in bytes of the system code page. A cut inside a double-byte character keeps the half byte.

/// Returns the number of bytes.
std::int32_t PF_LenB(const std::string& text);
std::string PF_LeftB(const std::string& text, std::int32_t count);
std::string PF_RightB(const std::string& text, std::int32_t count);
/// Returns the text from byte `start`, counted from 1. A `length` below 1 takes everything to the end.
std::string PF_MidB(const std::string& text, std::int32_t start, std::int32_t length);

}  // namespace orv
