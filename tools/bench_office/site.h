#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace bench {

namespace fs = std::filesystem;

/// An office with many terminals on one store. Each terminal is an install of its own.
class Site {
public:
    /// `store` becomes its ORVESTATE.MDB: a database, or the text that names one. Adds `companies` companies to the
    /// sample's, numbered from 100000001.
    Site(fs::path folder, const fs::path& store, int companies);

    /// Returns the program folder of a terminal and creates it if missing.
    std::string terminal(int number) const;
    fs::path ledger(int number) const { return folder_ / ("ledger" + std::to_string(number)); }

    /// Uses the store that `text` names from now on.
    void reachBy(const std::string& text) const;
    /// Resets all counts to 0 and removes all locks and ledgers.
    void beginAgain() const;
    /// Returns the count of each company, and the number of remaining locks.
    std::map<std::string, int> counts() const;
    int locks() const;

private:
    std::string store() const { return (folder_ / "MDB/ORVESTATE.MDB").string(); }

    fs::path folder_;
};

/// Creates a database file with the sample's rows.
void makeSampleFile(const fs::path& file);

}  // namespace bench
