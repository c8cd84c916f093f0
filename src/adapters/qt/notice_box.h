#pragma once

#include <QSize>
#include <cstddef>

#include "platform/machine/window_system.h"

class QWidget;

namespace orv {

/// Shows the notice, not larger than `room`, and waits. Returns the index of the button that was pressed.
std::size_t runNotice(const Notice& notice, QWidget* owner, QSize room);

}  // namespace orv
