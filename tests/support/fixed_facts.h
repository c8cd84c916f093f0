#pragma once

#include <string>

#include "platform/machine/machine_facts.h"

namespace orv {

class FixedFacts : public MachineFacts {
public:
    std::string computerName = "DESK01";
    std::string windowsDirectory = "C:\\WINDOWS";

    std::string GetComputerName() const override { return computerName; }
    std::string GetWindowsDirectory() const override { return windowsDirectory; }
};

}  // namespace orv
