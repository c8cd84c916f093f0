#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/scope.h"

namespace ui_driver {

using Environment = std::map<std::string, std::string>;

/// A program of this machine, started with its arguments. It is killed at the latest when the object is destroyed.
class Process : orv::NonCopyable {
public:
    explicit Process(const std::vector<std::string>& command, const Environment& extra = {});
    ~Process();

    bool running();
    /// Returns the exit code, or 128 plus the signal's number if the program was killed. Empty if it still runs after
    /// `most`.
    std::optional<int> wait(std::chrono::milliseconds most);
    void signal(int number);

private:
    pid_t pid_;
    std::optional<int> ended_;
};

/// Runs a program to its end and returns its output without trailing line breaks.
std::string readOutput(const std::vector<std::string>& command, const Environment& extra = {});

/// Returns a command that runs the given one as an unprivileged user, even if the caller is root.
std::vector<std::string> unprivileged(const std::vector<std::string>& command);
/// Gives a folder and its contents to the user of `unprivileged`.
void giveToUnprivileged(const std::filesystem::path& folder);

}  // namespace ui_driver
