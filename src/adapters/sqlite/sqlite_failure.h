#pragma once

#include <string>

#include "platform/run_time_error.h"

namespace orv {

/// Why the store refused: besides number and text a code that names the cause in the log. The codes are
/// "DB" and SQLite's extended result number where the engine refused, "DBFILE", "DBSQL", "DBTRAN" or "DBCONN" and two
/// digits where this adapter did.
class StoreFailure : public RunTimeError {
public:
    StoreFailure(Failure number, std::string code, std::string description);

    const std::string& code() const noexcept { return code_; }

private:
    std::string code_;
};

/// The failure for SQLite's result number. `detail`, SQLite's own words, is added where the statement is to blame.
StoreFailure engineFailure(int result, const std::string& detail);

}  // namespace orv
