#pragma once

#include <functional>
#include <memory>

namespace orv {

/// Calls `readable` from the application's event loop whenever the descriptor can be read, until the result is
/// released, which `readable` may do.
std::shared_ptr<void> watchDescriptor(int descriptor, std::function<void()> readable);

}  // namespace orv
