#pragma once

#include "platform/controls/image_control.h"

namespace orv {
inline namespace bas_Image {

/// Brings `gImgSrcFile` inside the longest width and height of the settings and leaves it in `gImgDstFile`, at the best
/// quality; one that is inside is copied as it is. `changed`: the picture was scaled. `image` holds the picture
/// afterwards. False: the pair tells why.
[[nodiscard]] bool PF_ResizeImePic(ImageControl& image, bool& changed);

}  // namespace bas_Image
}  // namespace orv
