#pragma once

#include <functional>
#include <string>

namespace orv {

/// The path of each kind of log. Settings know the paths and log their own failures, so the log asks through these
/// functions. The composition root sets them.
struct LogFiles {
    std::function<std::string()> err;
    std::function<std::string()> ras;
    std::function<std::string()> snd;
    std::function<std::string()> rcv;
    std::function<std::string()> dwl;
};

LogFiles& logFiles();

}  // namespace orv
