#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace desk {

using Environment = std::map<std::string, std::string>;

/// A program of this machine, started with its arguments and killed at the latest when the object goes.
class Process {
public:
    explicit Process(const std::vector<std::string>& command, const Environment& extra = {});
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    bool running();
    /// The exit code, 128 and the signal's number for a killed one; nothing when it still runs after `most`.
    std::optional<int> wait(std::chrono::milliseconds most);
    void signal(int number);

private:
    pid_t pid_;
    std::optional<int> ended_;
};

/// Runs a program to its end and gives what it printed, without trailing line breaks.
std::string outputOf(const std::vector<std::string>& command, const Environment& extra = {});

/// The command as an unprivileged user, also if root runs this.
std::vector<std::string> unprivileged(const std::vector<std::string>& command);
/// Makes the user of `unprivileged` the owner of a folder and all that is in it.
void giveToUnprivileged(const std::filesystem::path& folder);

}  // namespace desk
