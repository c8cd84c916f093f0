#pragma once

#include <map>
#include <string>
#include <vector>

#include "ledger.h"

namespace bench {

/// Saves that the program confirmed and whose count is not in the store.
struct Losses {
    /// Lost because two terminals were locking the company at the same moment, which the advisory lock does not
    /// prevent.
    int raced = 0;
    /// Lost without that cause. Each is a fault.
    int lost = 0;
};

/// Compares the ledgers of all terminals with the final counts in the store. Each company began with 0.
Losses audit(const std::vector<Entry>& entries, const std::map<std::string, int>& stored);

}  // namespace bench
