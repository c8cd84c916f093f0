#include "screen_probe.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>
#include <poll.h>

#include <optional>
#include <stdexcept>

#include "platform/scope.h"

namespace ui_driver {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr auto kPatience = 60s;
constexpr auto kQuiet = 300ms;

}  // namespace

class ScreenProbe::Connection : orv::NonCopyable {
public:
    explicit Connection(const std::string& name) : display_(XOpenDisplay(name.c_str())) {
        int error = 0;
        if (display_ == nullptr || !XDamageQueryExtension(display_, &damageEvents_, &error)) {
            throw std::runtime_error("no display " + name + " that reports its paintings");
        }
        XDamageCreate(display_, DefaultRootWindow(display_), XDamageReportRawRectangles);
        XSync(display_, False);
    }
    ~Connection() { XCloseDisplay(display_); }

    void moveTo(Spot spot) { XTestFakeMotionEvent(display_, -1, spot.x, spot.y, CurrentTime); }
    void button(bool down) { XTestFakeButtonEvent(display_, 1, down ? True : False, CurrentTime); }
    void key(const std::string& name, bool down) {
        const KeyCode code = XKeysymToKeycode(display_, XStringToKeysym(name.c_str()));
        if (code == 0) {
            throw std::runtime_error("no key " + name);
        }
        XTestFakeKeyEvent(display_, code, down ? True : False, CurrentTime);
    }
    void send() { XFlush(display_); }
    unsigned long colourAt(Spot spot) const {
        const std::unique_ptr<XImage, void (*)(XImage*)> image(
            XGetImage(display_, DefaultRootWindow(display_), spot.x, spot.y, 1, 1, AllPlanes, ZPixmap),
            [](XImage* pixel) { XDestroyImage(pixel); });
        return XGetPixel(image.get(), 0, 0);
    }

    /// Discards all events that have arrived so far.
    void forget() {
        XSync(display_, False);
        while (XPending(display_) > 0) {
            XEvent event;
            XNextEvent(display_, &event);
        }
    }

    /// Returns the rectangle that is painted next, or nothing after `most`.
    std::optional<XRectangle> painted(std::chrono::milliseconds most) {
        const Clock::time_point end = Clock::now() + most;
        while (XPending(display_) > 0 || waitUntil(end)) {
            XEvent event;
            XNextEvent(display_, &event);
            if (event.type == damageEvents_ + XDamageNotify) {
                return reinterpret_cast<XDamageNotifyEvent&>(event).area;
            }
        }
        return std::nullopt;
    }

private:
    /// True if the server has sent an event before `end`.
    bool waitUntil(Clock::time_point end) const {
        for (Clock::time_point now = Clock::now(); now < end; now = Clock::now()) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - now);
            pollfd server{.fd = ConnectionNumber(display_), .events = POLLIN, .revents = 0};
            poll(&server, 1, static_cast<int>(left.count()));
            if (XEventsQueued(display_, QueuedAfterReading) > 0) {
                return true;
            }
        }
        return false;
    }

    Display* display_;
    int damageEvents_ = 0;
};

ScreenProbe::ScreenProbe(const std::string& display) : connection_(std::make_unique<Connection>(display)) {}

ScreenProbe::~ScreenProbe() = default;

void ScreenProbe::startTiming() {
    connection_->forget();
    start_ = Clock::now();
}

void ScreenProbe::moveTo(Spot spot) {
    connection_->moveTo(spot);
    connection_->send();
}

void ScreenProbe::click() {
    startTiming();
    connection_->button(true);
    connection_->button(false);
    connection_->send();
}

void ScreenProbe::key(const std::string& name) {
    startTiming();
    const bool control = name.starts_with("ctrl+");
    const std::string plain = control ? name.substr(5) : name;
    if (control) {
        connection_->key("Control_L", true);
    }
    connection_->key(plain, true);
    connection_->key(plain, false);
    if (control) {
        connection_->key("Control_L", false);
    }
    connection_->send();
}

double ScreenProbe::settled(const std::string& what, const std::function<bool()>& shown) {
    Clock::time_point last = start_;
    do {
        while (connection_->painted(kQuiet)) {
            last = Clock::now();
        }
        if (Clock::now() - start_ > kPatience) {
            throw std::runtime_error("not shown within a minute: " + what);
        }
    } while (last == start_ || !shown());
    return std::chrono::duration<double, std::milli>(last - start_).count();
}

void ScreenProbe::waitForPaintingAt(Spot spot) {
    while (const auto area = connection_->painted(kPatience)) {
        if (spot.x >= area->x && spot.x < area->x + area->width && spot.y >= area->y &&
            spot.y < area->y + area->height) {
            return;
        }
    }
    throw std::runtime_error("the place has not been painted");
}

unsigned long ScreenProbe::colourAt(Spot spot) const { return connection_->colourAt(spot); }

void ScreenProbe::waitForColourAt(Spot spot, unsigned long colour) {
    do {
        waitForPaintingAt(spot);
    } while (colourAt(spot) != colour);
}

}  // namespace ui_driver
