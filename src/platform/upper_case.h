#pragma once

#include <string>
#include <string_view>

namespace orv {

/// The text in capitals, as Windows writes them, whatever the locale: Latin, Greek, Cyrillic and full-width letters and
/// the small Roman numerals. In a text that is not UTF-8 only ASCII letters change.
std::string upperCase(std::string_view text);

}  // namespace orv
