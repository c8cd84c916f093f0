#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace orv {

using FoundRight = std::function<void(const std::string& path, const std::string& what)>;

/// The use of a file or folder: programs and settings, an office's data, or the text that names a server.
enum class PlaceUse : std::uint8_t { Programs, Data, ServerText };

/// Returns a function that reports each permission of a file or folder that goes beyond its use. It skips links.
/// `office` is the folder whose owner and group everything has.
std::function<void(const std::filesystem::path& path, PlaceUse use)> placeRights(const std::filesystem::path& office,
                                                                                 const FoundRight& found);

/// Returns the folder of the office that has the folder of an install.
std::filesystem::path officeOf(const std::filesystem::path& install);

/// Returns the files and folders above the folder of an install through which its programs could be replaced.
std::vector<std::filesystem::path> placesAbove(const std::filesystem::path& install);

}  // namespace orv
