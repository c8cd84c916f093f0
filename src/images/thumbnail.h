#pragma once

#include <string>

#include "platform/controls/image_control.h"

namespace orv {

inline namespace bas_Image {

/// Shows the picture of `file` in the control's top left corner, in its own proportions. A blank path or a missing file
/// changes nothing and is not a failure. On false the pair holds the failure.
[[nodiscard]] bool PF_Thumbnail(ImageControl& image, const std::string& file);

}  // namespace bas_Image

}  // namespace orv
