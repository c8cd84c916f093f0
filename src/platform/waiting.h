#pragma once

#include <chrono>
#include <functional>

namespace orv {

/// Code that waits for a server, a lock or a disk calls `whileWaiting` about this often.
inline constexpr std::chrono::milliseconds kWaitingPause{40};

/// Lets the windows be painted, unless that happened less than a pause ago.
void whileWaiting();

/// Sets what happens during a wait on this thread. An empty function: nothing.
void setWhileWaiting(std::function<void()> paint);

}  // namespace orv
