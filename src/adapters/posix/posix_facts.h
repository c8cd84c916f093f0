#pragma once

#include "platform/machine/clock.h"
#include "platform/machine/machine_facts.h"

namespace orv {

/// The name comes from the host, or from the environment variable ORV_COMPUTER_NAME where an office names its terminals
/// itself (or runs two of them on one machine). The Windows folder is C:\WINDOWS of the install.
class PosixFacts : public MachineFacts {
public:
    std::string GetComputerName() const override;
    std::string GetWindowsDirectory() const override { return "C:\\WINDOWS"; }
};

class PosixClock : public Clock {
public:
    DateTime now() const override;
};

}  // namespace orv
