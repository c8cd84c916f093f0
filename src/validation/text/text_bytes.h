#pragma once

#include <cstdint>
#include <string>

namespace orv {

// Lengths and positions in bytes of the system code page. A cut inside a double-byte character keeps the half byte.

/// Returns the number of bytes.
std::int32_t PF_LenB(const std::string& text);
std::string PF_LeftB(const std::string& text, std::int32_t count);
std::string PF_RightB(const std::string& text, std::int32_t count);
/// Returns the text from byte `start`, counted from 1. A `length` below 1 takes everything to the end.
std::string PF_MidB(const std::string& text, std::int32_t start, std::int32_t length);

}  // namespace orv
