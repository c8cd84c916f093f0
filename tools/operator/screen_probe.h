#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace desk {

/// A place on the screen, in pixels.
struct Spot {
    int x = 0;
    int y = 0;
};

/// Gives mouse and key events to a display and sees when something is painted on it, over one connection. Faster than
/// the tools by which a terminal is worked, each of which is a program of its own.
class ScreenProbe {
public:
    explicit ScreenProbe(const std::string& display);
    ScreenProbe(const ScreenProbe&) = delete;
    ScreenProbe& operator=(const ScreenProbe&) = delete;
    ~ScreenProbe();

    void moveTo(Spot spot);
    /// Where the pointer is.
    void click();
    /// A key by its X name, for example "Return"; "ctrl+a" with the modifier.
    void key(const std::string& name);
    /// From now on counts what `settled` measures; a click and a key do the same.
    void startTiming();
    /// Waits until nothing has been painted for a third of a second and `shown` holds. Returns the milliseconds from
    /// the last input to the last painting. Throws after a minute, with `what`.
    double settled(const std::string& what, const std::function<bool()>& shown);
    /// Waits for the next painting that covers the spot. Throws if there is none within a minute.
    void waitForPaintingAt(Spot spot);
    unsigned long colourAt(Spot spot) const;
    /// Waits until a painting has given the spot that colour. Throws if none does within a minute.
    void waitForColourAt(Spot spot, unsigned long colour);

private:
    class Connection;

    std::unique_ptr<Connection> connection_;
    std::chrono::steady_clock::time_point start_;
};

}  // namespace desk
