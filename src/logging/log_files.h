#pragma once

#include <functional>
#include <string>

namespace orv {

/// Where each kind of log lies. The settings know the paths and log their own failures, so the log asks through these
/// functions, which the program's root fills.
struct LogFiles {
    std::function<std::string()> err;
    std::function<std::string()> ras;
    std::function<std::string()> snd;
    std::function<std::string()> rcv;
    std::function<std::string()> dwl;

    /// The operator has been told that records are kept elsewhere, which happens once a run.
    bool isRefusalTold = false;
};

LogFiles& logFiles();

}  // namespace orv
