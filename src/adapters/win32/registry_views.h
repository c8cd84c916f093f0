#pragma once

#include <memory>
#include <type_traits>
#include <vector>

#include "adapters/win32/windows_api.h"

namespace orv {

/// Closes a key of the system's registry.
struct KeyClosing {
    void operator()(HKEY key) const { ::RegCloseKey(key); }
};

/// An open key in each view of the registry that has it.
using RegistryViews = std::vector<std::unique_ptr<std::remove_pointer_t<HKEY>, KeyClosing>>;

}  // namespace orv
