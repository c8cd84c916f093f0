#pragma once

#include <vector>

#include "jet_file.h"
#include "table_copy.h"

namespace orv {

/// Converts the tables of an older install to those of the store, and reports omissions and changes with their cause. A
/// row is imported completely or not at all. Fails if the file is not an office's.
std::vector<WholeTable> makeOfficeTables(const JetFile& file, const Options& options, StoreReport& report);

}  // namespace orv
