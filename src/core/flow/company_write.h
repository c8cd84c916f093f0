#pragma once

#include <string>

namespace orv {

inline namespace bas_Main_Companydata {

/// Writes the record into its three tables, in one transaction on the open store. `targetId`: the key that the rows are
/// to bear. Rows are made only for the marker. False: nothing has been written, the pair tells why, and the log holds
/// the failure and the statement.
[[nodiscard]] bool PF_SetCompanyDataSave(const std::string& targetId);

}  // namespace bas_Main_Companydata

}  // namespace orv
