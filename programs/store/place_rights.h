#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace orv {

/// A permission by which users can change a place or use it, or an owner who can give such permissions.
enum class RightKind : std::uint8_t { Change, Owner, Use };

/// A permission that goes beyond those of an office, and how to remove it.
struct OpenRight {
    RightKind kind;
    const char* what;
};

/// Returns such permissions of a file or folder, none for a link. `office` is the folder whose owner and group
/// everything has.
std::vector<OpenRight> findOpenRights(const std::filesystem::path& path, const std::filesystem::path& office);

/// Returns the folder of the office that has the folder of an install.
std::filesystem::path findOffice(const std::filesystem::path& install);

/// Returns the files and folders above the folder of an install through which its programs could be replaced.
std::vector<std::filesystem::path> placesAbove(const std::filesystem::path& install);

}  // namespace orv
