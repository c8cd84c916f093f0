#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace orv {

/// What becomes of what a sibling program says. The desk calls it from the event loop.
struct SiblingCalls {
    /// A text for the control of that handle. False: refused.
    std::function<bool(std::uint32_t handle, const std::string& text)> setText;
    /// A key on the control of that handle. False: refused.
    std::function<bool(std::uint32_t handle, int key)> pressKey;
    /// The program has ended, or has hung up, without having been dismissed. Nothing comes after it.
    std::function<void()> gone;
};

/// Starts programs of the suite that work for a page and answer into its controls.
class SiblingDesk {
public:
    SiblingDesk() = default;
    SiblingDesk(const SiblingDesk&) = delete;
    SiblingDesk& operator=(const SiblingDesk&) = delete;
    virtual ~SiblingDesk() = default;

    /// Runs a command line with a normal window, without waiting, and listens to that program, and to no earlier one,
    /// until it is gone or dismissed. A program that can't be started is failure 53; no call comes then.
    virtual void start(const std::string& commandLine, SiblingCalls calls) = 0;
    /// Asks the program to bring its window to the front. Nothing when there is none.
    virtual void toFront() = 0;
    /// Listens no longer; the program runs on. Nothing when there is none. A call may do it.
    virtual void dismiss() = 0;
};

}  // namespace orv
