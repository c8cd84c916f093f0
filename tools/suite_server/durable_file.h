#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orv {

/// Replaces the file as a whole. After a kill or a power failure it has the old or the new content. When the call
/// returns, the content is on the disk. Throws std::system_error.
void writeDurably(const std::filesystem::path& file, std::string_view bytes);

/// Returns the whole content, or "" if the file is missing.
std::string readWhole(const std::filesystem::path& file);

}  // namespace orv
