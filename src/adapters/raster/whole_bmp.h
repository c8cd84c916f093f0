#pragma once

#include "adapters/pixels/open_file.h"

namespace orv {

/// Throws the failure for a damaged picture if a BMP file is truncated. The decoder would leave the missing part blank
/// without a message.
void requireWholeBmp(const OpenFile& file);

}  // namespace orv
