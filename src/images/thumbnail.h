#pragma once

#include <string>

#include "platform/controls/image_control.h"

namespace orv {

inline namespace bas_Image {

/// Shows the picture of `file` in the control's top left corner, in its own proportions. A blank path and a file that
/// is not there show nothing new and are no failure. False: the pair tells why.
[[nodiscard]] bool PF_Thumbnail(ImageControl& image, const std::string& file);

}  // namespace bas_Image

}  // namespace orv
