#pragma once

#include <string>

#include "platform/scope.h"

namespace orv {

/// Facts about the computer.
class MachineFacts : public Interface {
public:
    /// Returns the full name in upper case, or "" if it is not available. NUL characters can follow, as in a buffer.
    virtual std::string GetComputerName() const = 0;
    /// Returns the Windows folder in the system's form, or "" if it is not available.
    virtual std::string GetWindowsDirectory() const = 0;
};

}  // namespace orv
