#pragma once

#include "platform/scope.h"

namespace orv {

/// Marks an event loop that the system runs inside one of its own events: a notice, a modal form, a repaint. Unloaded
/// forms may still have functions running below it and are kept until the last such loop has ended.
class NestedEvents : NonCopyable {
public:
    NestedEvents() { ++depth_; }
    ~NestedEvents() { --depth_; }
    static bool running() { return depth_ > 0; }

private:
    static inline int depth_ = 0;
};

}  // namespace orv
