#pragma once

#include <cstddef>

#include "platform/machine/window_system.h"

class QWidget;

namespace orv {

/// Shows the notice and waits; returns the place of the button pressed.
std::size_t runNotice(const Notice& notice, QWidget* owner);

}  // namespace orv
