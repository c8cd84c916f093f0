#pragma once

#include "platform/controls/image_control.h"

namespace orv {
inline namespace bas_Image {

// Quality factors of the picture library. The factor 1 is never used.
inline constexpr int kBestQuality = 2;
inline constexpr int kSmallestFile = 255;

/// Brings `gImgDstFile` below the largest file size of the settings, with the best quality at which it fits: `image`,
/// which holds its pixels, is written again and again in its place, and what is due is painted meanwhile. A file that
/// fits is not touched. `changed` becomes true when the file was written. False: the pair tells why, and the file is in
/// no defined state.
[[nodiscard]] bool PF_ChangeQFactor(ImageControl& image, bool& changed);

}  // namespace bas_Image
}  // namespace orv
