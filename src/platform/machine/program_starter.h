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

    /// Runs a command line with a normal window, without waiting. A program that can't be started is failure 53.
    virtual void start(const std::string& commandLine) = 0;
};

}  // namespace orv
