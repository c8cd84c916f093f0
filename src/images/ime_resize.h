#pragma once

#include <string>

#include "platform/controls/image_control.h"

namespace orv {
inline namespace bas_Image {

/// Brings the picture of the file `source` inside the limits of the settings. `image` is where it is worked on,
/// `target` the path of the result. What had to be changed is shown to the operator, and `target` comes back empty when
/// that was not accepted. False: the pair tells why (both empty: the dialog could not be shown), and the file at
/// `target` may be half done.
[[nodiscard]] bool PF_ImeResize(const std::string& source, ImageControl& image, std::string& target);

}  // namespace bas_Image
}  // namespace orv
