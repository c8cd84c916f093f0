#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orv {

/// The characters of a UTF-8 text. A byte that is no UTF-8 becomes U+FFFD.
std::u32string toCharacters(std::string_view text);

std::string toUtf8(std::u32string_view characters);

/// The first characters of a UTF-8 text, `count` of them or all.
std::string firstCharacters(std::string_view text, std::size_t count);

}  // namespace orv
