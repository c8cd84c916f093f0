#pragma once

#include <string>
#include <string_view>

namespace orv {

/// Converts UTF-8 to the system's text. A byte that is not UTF-8 becomes U+FFFD.
std::wstring toWide(std::string_view text);
/// The reverse.
std::string fromWide(std::wstring_view text);

/// Returns the value of a variable of the environment, or "" if it is not set.
std::string environmentValue(const wchar_t* name);

}  // namespace orv
