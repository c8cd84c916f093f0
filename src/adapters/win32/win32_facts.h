#pragma once

#include "platform/machine/clock.h"
#include "platform/machine/machine_facts.h"

namespace orv {

/// The environment variable ORV_COMPUTER_NAME replaces the computer's name. It is for an office that names its
/// terminals itself or uses two of them on one machine.
class Win32Facts : public MachineFacts {
public:
    std::string GetComputerName() const override;
    std::string GetWindowsDirectory() const override;
};

class Win32Clock : public Clock {
public:
    DateTime now() const override;
};

}  // namespace orv
