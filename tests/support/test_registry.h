#pragma once

#ifdef _WIN32
#include "support/registry_key.h"
#else
#include "adapters/posix/registry_file.h"

namespace orv {
using TestRegistry = RegistryFile;
}
#endif
