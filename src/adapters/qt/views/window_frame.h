#pragma once

#include <QMargins>

#include "platform/forms/form.h"

namespace orv {

/// Returns the frame that the desktop puts around a window, in pixels of the display. A common frame is assumed if the
/// desktop does not answer. Empty if the toolkit does not use the desktop.
QMargins measureFrame(Sizing sizing);

}  // namespace orv
