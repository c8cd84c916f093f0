#pragma once

#include "platform/controls/image_control.h"

namespace orv {
inline namespace bas_Image {

// Quality factors of the picture library. Factor 1 is never used.
inline constexpr int kBestQuality = 2;
inline constexpr int kSmallestFile = 255;

/// Reduces `gImgDstFile` to the maximum file size of the settings, at the best quality that fits. Writes the file
/// repeatedly from the pixels in `image` and paints the windows meanwhile. A file that fits is not changed. `changed`
/// becomes true if the file was written. On false the pair holds the failure and the file is invalid.
[[nodiscard]] bool PF_ChangeQFactor(ImageControl& image, bool& changed);

}  // namespace bas_Image
}  // namespace orv
