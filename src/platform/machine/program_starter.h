#pragma once

#include <string>

#include "platform/scope.h"

namespace orv {

/// Starts another program of the suite.
class ProgramStarter : public Interface {
public:
    /// Runs a command line with a normal window and does not wait. Failure 53 if the program cannot be started.
    virtual void start(const std::string& commandLine) = 0;
};

}  // namespace orv
