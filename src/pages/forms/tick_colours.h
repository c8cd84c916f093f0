#pragma once

#include "platform/controls/check_box.h"

namespace orv {

/// Gives a box the colours of its state: on, or any other.
void showTick(CheckBox& box);

}  // namespace orv
