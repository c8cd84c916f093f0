#pragma once

#include <functional>
#include <memory>

namespace orv {

/// Calls `readable` from the application's event loop whenever the descriptor can be read. Releasing the result ends
/// the watch; `readable` itself can do that.
std::shared_ptr<void> watchDescriptor(int descriptor, std::function<void()> readable);

}  // namespace orv
