#pragma once

#include <QMargins>

#include "platform/forms/form.h"

namespace orv {

/// The frame that the window manager puts around a window, in pixels of the display. The manager is asked once for each
/// sizing; if it does not answer, the frame is a usual one. Empty where the toolkit draws on anything but an X display.
QMargins windowFrame(Sizing sizing);

}  // namespace orv
