#pragma once

#include <string>

namespace orv {
inline namespace bas_Profile {

/// Reads one value of an INI file. Returns "" and true if the file, section, key or value is missing, because callers
/// have their own defaults. Returns false only for a run-time failure, which is in the pair; `value` is then unchanged.
[[nodiscard]] bool PF_GetProFile(const std::string& file, const std::string& section, const std::string& key,
                                 std::string& value);

}  // namespace bas_Profile
}  // namespace orv
