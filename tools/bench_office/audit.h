#pragma once

#include <map>
#include <string>
#include <vector>

#include "ledger.h"

namespace bench {

/// Saves whose count is not in the store, though the operator was told that they are.
struct Losses {
    /// The two terminals were locking the company at the same moment, which the advisory lock does not prevent.
    int raced = 0;
    /// Without that excuse. Each is a fault.
    int lost = 0;
};

/// Compares what the ledgers of all terminals say with the counts that the store holds in the end. Each company began
/// with 0.
Losses audit(const std::vector<Entry>& entries, const std::map<std::string, int>& stored);

}  // namespace bench
