#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "platform/scope.h"

namespace ui_driver {

/// A place on the screen, in pixels.
struct Spot {
    int x = 0;
    int y = 0;
};

/// Sends mouse and key events to a display and observes its painting, over one connection. This is faster than the
/// tools that operate a terminal, each of which is a program of its own.
class ScreenProbe : orv::NonCopyable {
public:
    explicit ScreenProbe(const std::string& display);
    ~ScreenProbe();

    void moveTo(Spot spot);
    /// Clicks at the position of the pointer.
    void click();
    /// Presses a key by its X name, for example "Return", or "ctrl+a" with the modifier.
    void key(const std::string& name);
    /// Starts the time that `settled` measures. A click and a key start it too.
    void startTiming();
    /// Waits until the screen has not been painted for three tenths of a second and `shown` holds. Returns the
    /// milliseconds from the last input to the last painting. Throws with `what` after a minute.
    double settled(const std::string& what, const std::function<bool()>& shown);
    /// Waits for the next painting that covers the spot. Throws if there is none within a minute.
    void waitForPaintingAt(Spot spot);
    unsigned long colourAt(Spot spot) const;
    /// Waits until the spot has been painted in that colour. Throws if that does not happen within a minute.
    void waitForColourAt(Spot spot, unsigned long colour);

private:
    class Connection;

    std::unique_ptr<Connection> connection_;
    std::chrono::steady_clock::time_point start_;
};

}  // namespace ui_driver
