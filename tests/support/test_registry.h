#pragma once

#ifdef _WIN32
#include "support/registry_key.h"
#else
#include "adapters/system/system_registry.h"

namespace orv {
using TestRegistry = SystemRegistry;
}
#endif
