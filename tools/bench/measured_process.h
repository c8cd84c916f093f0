#pragma once

#include <string>

namespace bench {

struct Measured {
    double milliseconds = 0;
    /// The most that the process, or the largest of those that it started, held at a time.
    double megabytes = 0;
};

/// Runs a shell command to its end; throws when it fails.
Measured measured(const std::string& command);

}  // namespace bench
