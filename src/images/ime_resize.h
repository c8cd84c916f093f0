#pragma once

#include <string>

#include "platform/controls/image_control.h"

namespace orv {
inline namespace bas_Image {

/// Fits the picture in `source` to the limits of the settings, using `image` for the work and `target` for the result.
/// If the picture had to be changed, the operator must confirm it; otherwise `target` becomes empty. On false the pair
/// holds the failure (both parts are empty if the dialog could not be shown). The file at `target` can then be
/// incomplete.
[[nodiscard]] bool PF_ImeResize(const std::string& source, ImageControl& image, std::string& target);

}  // namespace bas_Image
}  // namespace orv
