#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orv {

/// Replaces the file as a whole: what stands there after a kill or a power cut is the old text or the new one. Back
/// from the call it is on the disk. Raises std::system_error.
void writeDurably(const std::filesystem::path& file, std::string_view bytes);

/// The whole file; empty where there is none.
std::string readWhole(const std::filesystem::path& file);

}  // namespace orv
