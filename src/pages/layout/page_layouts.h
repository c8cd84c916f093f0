#pragma once

#include <span>

#include "platform/design.h"

namespace orv {

// One table per form, each in a file of this folder. The pages' tables omit the controls that all pages have.

std::span<const Placement> frameLayout();
std::span<const Placement> compInp0Layout();
std::span<const Placement> compInp1Layout();
std::span<const Placement> compInp2Layout();
std::span<const Placement> compInp3Layout();
std::span<const Placement> compInp4Layout();
std::span<const Placement> changePasswordLayout();
std::span<const Placement> imgCommonLayout();

}  // namespace orv
