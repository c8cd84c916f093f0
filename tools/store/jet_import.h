#pragma once

#include <vector>

#include "jet_file.h"
#include "table_copy.h"

namespace orv {

/// Brings the tables of an older install into the form of the store's, and reports what was left out or changed and
/// why. A row is taken whole or not at all. Fails where the file is not of an office.
std::vector<WholeTable> officeTablesOf(const JetFile& file, const Options& options, StoreReport& report);

}  // namespace orv
