#pragma once

#include <cstdint>

#include "platform/scope.h"

namespace orv {

/// Supplies the numbers by which other programs address controls.
class ControlHandles : public Interface {
public:
    /// Returns a number above 0 that no other control has.
    virtual std::uint32_t allocate() = 0;
    /// The control no longer exists.
    virtual void release(std::uint32_t /*handle*/) {}
};

/// Sets the source of all later handles. Null restores the default, which counts.
void useControlHandles(ControlHandles* handles);

/// Returns the present source.
ControlHandles& controlHandles();

}  // namespace orv
