#pragma once

#include <string>

#include "platform/value.h"

namespace orv {

inline namespace bas_WriteLog {

/// Appends one record to the log of its kind: "ERR", "RAS", "SND", "RCV" or "DWL". `args`: three values for "ERR",
/// "RAS" and "DWL"; one list for "SND"; six lists of one length for "RCV". False: nothing was written, and the pair
/// tells why. A call within a call ends at once. Where the log is not a plain file that this user may write, the record
/// goes to a file of the same name that only this user can reach; the first time, the operator gets a message.
bool PF_WriteLog(const std::string& kind, const Values& args);

}  // namespace bas_WriteLog

/// The record that everybody writes: the present time, a code, a text.
void logError(const Value& code, const Value& text);

/// The same with the pair.
void logPair();

}  // namespace orv
