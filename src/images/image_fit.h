#pragma once

#include <string>

#include "platform/controls/image_control.h"

namespace orv {
inline namespace bas_Image {

/// Reduces `gImgDstFile` to the maximum file size of the settings, at the best quality that fits. Writes the file
/// repeatedly from the pixels in `image` and paints the windows meanwhile. A file that fits is not changed. `changed`
/// becomes true if the file was written. On false the pair holds the failure and the file is invalid.
[[nodiscard]] bool PF_ChangeQFactor(ImageControl& image, bool& changed);

/// Fits `gImgSrcFile` into the maximum width and height of the settings and writes it to `gImgDstFile` at the best
/// quality. A picture within the limits is copied unchanged. `changed` is true if the picture was scaled. `image` then
/// contains the picture. On false the pair holds the failure.
[[nodiscard]] bool PF_ResizeImePic(ImageControl& image, bool& changed);

/// Fits the picture in `source` to the limits of the settings, using `image` for the work and `target` for the result.
/// If the picture had to be changed, the operator must confirm it; otherwise `target` becomes empty. On false the pair
/// holds the failure (both parts are empty if the dialog could not be shown). The file at `target` can then be
/// incomplete.
[[nodiscard]] bool PF_ImeResize(const std::string& source, ImageControl& image, std::string& target);

}  // namespace bas_Image

}  // namespace orv
