#pragma once

#include "platform/controls/image_control.h"

namespace orv {
inline namespace bas_Image {

/// Fits `gImgSrcFile` into the maximum width and height of the settings and writes it to `gImgDstFile` at the best
/// quality. A picture within the limits is copied unchanged. `changed` is true if the picture was scaled. `image` then
/// contains the picture. On false the pair holds the failure.
[[nodiscard]] bool PF_ResizeImePic(ImageControl& image, bool& changed);

}  // namespace bas_Image
}  // namespace orv
