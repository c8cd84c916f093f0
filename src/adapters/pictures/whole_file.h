#pragma once

#include <string>
#include <vector>

#include "platform/machine/file_system.h"

namespace orv {

/// Writes the bytes over whatever file stands at `path`: they take its place in one step when all of them are written.
/// A failure leaves what was there.
void writeWholeFile(const FileSystem& files, const std::string& path, const std::vector<std::uint8_t>& bytes);

}  // namespace orv
