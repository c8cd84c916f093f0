#pragma once

#include "platform/machine/picture_library.h"

namespace orv {

/// The whole of `source` at another size, by a Lanczos filter that averages when it shrinks.
Pixels resampled(const Pixels& source, int width, int height);

/// Turned and mirrored as the Exif code 1 to 8 says.
Pixels upright(const Pixels& source, int orientation);

}  // namespace orv
