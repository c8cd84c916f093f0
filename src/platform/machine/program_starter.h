#pragma once

#include <string>

namespace orv {

/// Starts another program of the suite.
class ProgramStarter {
public:
    ProgramStarter() = default;
    ProgramStarter(const ProgramStarter&) = delete;
    ProgramStarter& operator=(const ProgramStarter&) = delete;
    virtual ~ProgramStarter() = default;

    /// Runs a command line with a normal window and does not wait. Failure 53 if the program cannot be started.
    virtual void start(const std::string& commandLine) = 0;
};

}  // namespace orv
