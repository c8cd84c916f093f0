#pragma once

#include <chrono>
#include <functional>

namespace orv {

/// The interval at which code that waits for a server, lock or disk calls `whileWaiting`.
inline constexpr std::chrono::milliseconds kWaitingPause{40};

/// Paints the windows, at most once in `kWaitingPause`.
void whileWaiting();

/// Sets the function that paints during a wait on this thread, and the time until its first call. An empty one paints
/// nothing.
void setWhileWaiting(std::function<void()> paint, std::chrono::milliseconds first = kWaitingPause);

}  // namespace orv
