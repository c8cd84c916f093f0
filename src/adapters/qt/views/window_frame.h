#pragma once

#include <QMargins>

#include "platform/forms/form.h"

namespace orv {

/// Returns the frame that the window manager puts around a window, in pixels of the display. The manager is asked once
/// for each sizing. A common frame is assumed if it does not answer. Empty if the toolkit does not use an X display.
QMargins windowFrame(Sizing sizing);

}  // namespace orv
