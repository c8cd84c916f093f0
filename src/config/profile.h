#pragma once

#include <string>

namespace orv {
inline namespace bas_Profile {

/// One value of an INI file. What is absent (file, section, key) and what is empty both give "" and true: callers have
/// their own defaults. False is a run-time failure only, told by the pair; `value` then stays as it was.
[[nodiscard]] bool PF_GetProFile(const std::string& file, const std::string& section, const std::string& key,
                                 std::string& value);

}  // namespace bas_Profile
}  // namespace orv
