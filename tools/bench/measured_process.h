#pragma once

#include <string>

namespace bench {

struct Measured {
    double milliseconds = 0;
    /// CPU time of all threads, which other load on the machine does not affect.
    double cpuMilliseconds = 0;
    /// Peak memory of the process, or of the largest process that it started.
    double megabytes = 0;
};

/// Runs a shell command to its end. Throws if it fails.
Measured measured(const std::string& command);

}  // namespace bench
