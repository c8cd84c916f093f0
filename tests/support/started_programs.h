#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/machine/program_starter.h"
#include "platform/run_time_error.h"

namespace orv {

/// Starts nothing; keeps the command lines. With `failure` set, a start fails with it and is not kept.
class StartedPrograms : public ProgramStarter {
public:
    std::vector<std::string> commandLines;
    std::optional<Failure> failure;

    void start(const std::string& commandLine) override {
        if (failure) {
            throw RunTimeError(*failure);
        }
        commandLines.push_back(commandLine);
    }
};

}  // namespace orv
