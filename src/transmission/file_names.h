#pragma once

#include <string>

namespace orv {

/// True if the file, whose name can be in quotes, exists and can be opened for reading. Never throws.
[[nodiscard]] bool PF_FileCanOpen(const std::string& file);

/// Returns `text` trimmed and without one pair of enclosing double quotes. Failure 5 for fewer than two characters.
std::string PF_StripQuotes(const std::string& text);

/// Returns the part after the last "\" or ":".
std::string PF_BaseName(const std::string& path);

}  // namespace orv
