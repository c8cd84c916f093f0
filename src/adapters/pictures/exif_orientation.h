#pragma once

#include <cstdio>

#include "adapters/pictures/bitmap.h"

namespace orv {

/// How a JPEG file wants to be turned: the Exif code 1 to 8, 1 when it says nothing that makes sense. Reads the
/// segments before the picture only, and leaves the stream anywhere.
int exifOrientation(std::FILE* jpeg);

/// Whether the orientation swaps width and height.
constexpr bool swapsSides(int orientation) { return orientation >= 5; }

// What has to be mirrored first, where the picture is stored, from right to left or from bottom to top.
constexpr bool mirrorsColumns(int orientation) {
    return orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
}
constexpr bool mirrorsLines(int orientation) {
    return orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
}

/// The picture turned and mirrored as the code says.
Bitmap turned(const Bitmap& source, int orientation);

}  // namespace orv
