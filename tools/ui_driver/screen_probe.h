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

/// Gives mouse and key events to a display and notices when something is painted on it, over one connection. It is
/// faster than the tools that work a terminal, since each of these is a program of its own.
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
    /// Starts the time that `settled` measures; a click and a key do the same.
    void startTiming();
    /// Waits until nothing has been painted for three tenths of a second and `shown` holds. Returns the milliseconds
    /// from the last input to the last painting. Throws after a minute, with `what`.
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
