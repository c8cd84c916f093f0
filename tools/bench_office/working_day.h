#pragma once

#include <map>
#include <string>
#include <vector>

#include "audit.h"
#include "site.h"

namespace bench {

/// The work of many terminals on one store in some seconds.
struct WorkingDay {
    std::map<Deed, int> deeds;
    std::map<std::string, int> failures;  // by code
    double savesPerSecond = 0;
    double saveMilliseconds95 = 0;  // the time that 95 of 100 saves did not exceed
    Losses losses;
    int locksLeft = 0;
};

/// Runs `terminals` terminals without pauses for `seconds`. Each is a process that starts a process for each opening of
/// the program.
WorkingDay work(const Site& site, int terminals, int companies, int seconds);

}  // namespace bench
