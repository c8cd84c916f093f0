#pragma once

#include "adapters/pictures/open_file.h"

namespace orv {

/// Raises the failure for a damaged picture when a BMP file ends before its picture does: the decoder leaves what is
/// missing blank and says nothing.
void requireWholeBmp(const OpenFile& file);

}  // namespace orv
