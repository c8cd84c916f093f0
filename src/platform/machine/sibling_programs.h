#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/scope.h"

namespace orv {

/// Receives the messages of a sibling program, called from the event loop.
struct SiblingCalls {
    /// Receives a text for the control with that handle. False if rejected.
    std::function<bool(std::uint32_t handle, const std::string& text)> setText;
    /// Receives a key for the control with that handle. False if rejected.
    std::function<bool(std::uint32_t handle, int key)> pressKey;
    /// Called when the program has ended or disconnected without being dismissed. No call follows.
    std::function<void()> gone;
};

/// Starts programs of the suite that work for a page and send their results to its controls.
class SiblingPrograms : public Interface {
public:
    /// Runs a command line with a normal window and does not wait. Accepts messages from this program only, until it
    /// ends or is dismissed. Failure 53 if it cannot be started; no call follows then.
    virtual void start(const std::string& commandLine, SiblingCalls calls) = 0;
    /// Asks the program to bring its window to the front. Does nothing if there is none.
    virtual void bringToFront() = 0;
    /// Stops accepting messages; the program continues to run. Does nothing if there is none. Can be used within a
    /// call.
    virtual void dismiss() = 0;
};

}  // namespace orv
