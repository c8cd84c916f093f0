#pragma once

#include "platform/scope.h"
#include "platform/value.h"

namespace orv {

class Clock : public Interface {
public:
    /// Returns the local date and time.
    virtual DateTime now() const = 0;
};

}  // namespace orv
