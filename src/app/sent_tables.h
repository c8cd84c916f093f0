#pragma once

#include <vector>

#include "adapters/http/company_document.h"

namespace orv {

/// Returns the three tables of a company with the columns that are sent to the server: the stored fields of the record,
/// and the number of listings under contract. Other programs' dates are not sent.
std::vector<SentTable> sentTables();

}  // namespace orv
