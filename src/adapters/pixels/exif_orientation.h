#pragma once

#include <cstdio>

#include "adapters/pixels/bitmap.h"

namespace orv {

/// Returns the Exif orientation of a JPEG file, 1 to 8, or 1 if it has no valid one. Reads only the segments before the
/// picture and leaves the stream at any position.
int exifOrientation(std::FILE* jpeg);

/// True if the orientation swaps width and height.
constexpr bool swapsSides(int orientation) { return orientation >= 5; }

// The stored picture is first mirrored from right to left, or from bottom to top.
constexpr bool mirrorsColumns(int orientation) {
    return orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
}
constexpr bool mirrorsLines(int orientation) {
    return orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
}

/// Returns the picture rotated and mirrored by the code.
Bitmap turned(const Bitmap& source, int orientation);

}  // namespace orv
