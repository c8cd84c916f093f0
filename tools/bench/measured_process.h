#pragma once

#include <string>

namespace bench {

struct Measured {
    double milliseconds = 0;
    /// Of work, by all its threads: what else the machine does is not in it.
    double cpuMilliseconds = 0;
    /// The most that the process, or the largest of those that it started, held at a time.
    double megabytes = 0;
};

/// Runs a shell command to its end; throws when it fails.
Measured measured(const std::string& command);

}  // namespace bench
