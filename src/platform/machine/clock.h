#pragma once

#include "platform/value.h"

namespace orv {

class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    /// Returns the local date and time.
    virtual DateTime now() const = 0;
};

}  // namespace orv
