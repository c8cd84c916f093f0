#pragma once

#include <QSize>
#include <cstddef>

#include "platform/machine/window_system.h"

class QWidget;

namespace orv {

/// Shows the notice, no larger than `room`, and waits; returns the place of the button pressed.
std::size_t runNotice(const Notice& notice, QWidget* owner, QSize room);

}  // namespace orv
