#pragma once

namespace orv {

/// Stands around every event loop that the system runs inside one of its own events: a notice, a modal form, a repaint.
/// Forms that were unloaded may still be at work below it, and stay until none is left.
class NestedEvents {
public:
    NestedEvents() { ++depth_; }
    NestedEvents(const NestedEvents&) = delete;
    NestedEvents& operator=(const NestedEvents&) = delete;
    ~NestedEvents() { --depth_; }
    static bool running() { return depth_ > 0; }

private:
    static inline int depth_ = 0;
};

}  // namespace orv
