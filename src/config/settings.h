#pragma once

#include <optional>
#include <string>

#include "config/cls_com.h"
#include "config/cls_multi_com.h"

namespace orv {

/// Returns the one object for folders, file names and settings, created at first use.
cls_Com& com();

/// Returns the one object for the settings of sending, created at first use.
cls_Multi_Com& multiCom();

/// Deletes both objects and the globals of the profile loader. For test fixtures only.
void dropSharedSettings();

/// Returns `path` with a trailing "\", or "" for an empty path. Checks the last byte in the code page. A folder whose
/// last character ends in that byte therefore gets no separator, which existing installs rely on.
std::string P_AddBackslash(const std::string& path);

/// Returns the index of the association to which every company of this edition belongs, or nothing in other editions.
std::optional<std::size_t> findEditionAssociation();

inline namespace bas_Profile {

/// Reads one value of an INI file. Returns "" and true if the file, section, key or value is missing, because callers
/// have their own defaults. Returns false only for a run-time failure, which is in the pair; `value` is then unchanged.
[[nodiscard]] bool PF_GetProFile(const std::string& file, const std::string& section, const std::string& key,
                                 std::string& value);

}  // namespace bas_Profile
}  // namespace orv
