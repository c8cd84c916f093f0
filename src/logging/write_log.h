#pragma once

#include <functional>
#include <string>

#include "platform/value.h"

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

inline namespace bas_WriteLog {

/// Appends a record to the log `kind`: "ERR", "RAS", "SND", "RCV" or "DWL". `args` holds three values for "ERR", "RAS"
/// and "DWL", one list for "SND", and six lists of equal length for "RCV". On false nothing is written and the pair
/// holds the failure. A nested call returns at once. If the log is not a plain file that this user can write, the
/// record goes to a private file of the same name. The operator sees a message the first time.
bool PF_WriteLog(const std::string& kind, const Values& args);

}  // namespace bas_WriteLog

/// Writes an ERR record with the present time, a code and a text.
void logError(const Value& code, const Value& text);

/// Writes an ERR record with the pair.
void logPair();

}  // namespace orv
