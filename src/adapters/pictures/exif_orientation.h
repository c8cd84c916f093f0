#pragma once

#include <cstdio>

#include "adapters/pictures/bitmap.h"

namespace orv {

/// How a JPEG file wants to be turned: the Exif code 1 to 8, 1 when it says nothing that makes sense. Reads the
/// segments before the picture only, and leaves the stream anywhere.
int exifOrientation(std::FILE* jpeg);

/// Whether the orientation swaps width and height.
constexpr bool swapsSides(int orientation) { return orientation >= 5; }

/// The picture turned and mirrored as the code says.
Bitmap turned(const Bitmap& source, int orientation);

}  // namespace orv
