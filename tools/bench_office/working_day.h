#pragma once

#include <map>
#include <string>
#include <vector>

#include "audit.h"
#include "site.h"

namespace bench {

/// What many terminals got done on one store in some seconds.
struct WorkingDay {
    std::map<Deed, int> deeds;
    std::map<std::string, int> failures;  // by code
    double savesPerSecond = 0;
    double saveMilliseconds95 = 0;  // that 95 of 100 saves did not exceed
    Losses losses;
    int locksLeft = 0;
};

/// Lets `terminals` terminals work without a pause for `seconds`, each a process that starts a process for each
/// opening of the program.
WorkingDay work(const Site& site, int terminals, int companies, int seconds);

/// The peer's saves a second: the same statements from `terminals` clients that open a session for each event, as often
/// as the terminals did each.
class Peer {
public:
    /// `server`: the text that names the database.
    Peer(const Site& site, fs::path folder, std::string server, int companies);

    double savesPerSecond(int terminals, int seconds, const WorkingDay& like) const;

private:
    fs::path folder_;
    std::string server_;
};

}  // namespace bench
