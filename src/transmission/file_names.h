#pragma once

#include <string>

namespace orv {

/// Whether the file, perhaps in quotes, exists and can be opened for reading. Never raises.
[[nodiscard]] bool PF_FileCanOpen(const std::string& file);

/// `text`, trimmed, without one pair of enclosing double quotes. Fewer than two characters are failure 5.
std::string PF_StripQuotes(const std::string& text);

/// What stands behind the last "\" or ":".
std::string PF_BaseName(const std::string& path);

}  // namespace orv
