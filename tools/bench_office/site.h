#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace bench {

namespace fs = std::filesystem;

/// An office with many terminals, each an install of its own, on one store.
class Site {
public:
    /// `store`: what becomes its ORVESTATE.MDB, a database or the text that names one. It gets `companies` companies
    /// beside the sample's, numbered from 100000001.
    Site(fs::path folder, const fs::path& store, int companies);

    /// The program folder of a terminal, which is made where it is not there yet.
    std::string terminal(int number) const;
    fs::path ledger(int number) const { return folder_ / ("ledger" + std::to_string(number)); }

    /// From now on the store is what `text` names.
    void reachBy(const std::string& text) const;
    /// All counts 0, no lock, no ledger.
    void beginAgain() const;
    /// The count of each company, and how many locks are left.
    std::map<std::string, int> counts() const;
    int locks() const;

private:
    std::string store() const { return (folder_ / "MDB/ORVESTATE.MDB").string(); }

    fs::path folder_;
};

/// A database file with the sample's rows.
void makeSampleFile(const fs::path& file);

}  // namespace bench
