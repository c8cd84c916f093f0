#pragma once

#include "binding/binding_row.h"

namespace orv {

extern const PageBinding kBinding0;
extern const PageBinding kBinding1;
extern const PageBinding kBinding2;
extern const PageBinding kBinding3;
extern const PageBinding kBinding4;

}  // namespace orv
