#pragma once

#include "platform/machine/clock.h"
#include "platform/machine/machine_facts.h"

namespace orv {

/// The computer's name is the host name. If the environment variable ORV_COMPUTER_NAME is set, it is used instead, so
/// that an office can name its terminals or run two on one machine. Without Windows, its folder is C:\WINDOWS of the
/// install.
class SystemFacts : public MachineFacts {
public:
    std::string GetComputerName() const override;
    std::string GetWindowsDirectory() const override;
};

class SystemClock : public Clock {
public:
    DateTime now() const override;
};

}  // namespace orv
