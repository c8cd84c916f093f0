#pragma once

#include <string>

namespace orv {

inline namespace bas_Main_Companydata {

/// Writes the record to its three tables, in one transaction on the open store. `targetId` is the key that the rows
/// will have. Rows are inserted only for the new-company key. On false nothing is written, the pair holds the failure,
/// and the log has the failure and the statement.
[[nodiscard]] bool PF_SetCompanyDataSave(const std::string& targetId);

}  // namespace bas_Main_Companydata

}  // namespace orv
