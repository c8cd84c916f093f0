#pragma once

#include <string>
#include <string_view>

namespace orv {

/// Converts to capitals as Windows does, independent of the locale: Latin, Greek, Cyrillic, full-width letters and
/// small Roman numerals. In a text that is not UTF-8 only ASCII letters change.
std::string upperCase(std::string_view text);

}  // namespace orv
