#pragma once

#include <cstdint>
#include <string>

namespace orv {

inline namespace bas_Main_Companydata {

// Build the statements that save a company, without accessing the database. Values are used as in the record; cleaning
// on the way from the page removes apostrophes. The blanks are required, because the log contains failed statements.
// False only on a run-time failure, which is in the pair.

[[nodiscard]] bool P_MakeInsertSQL_Info(std::string& sql);
[[nodiscard]] bool P_MakeInsertSQL_Add(std::string& sql);
[[nodiscard]] bool P_MakeInsertSQL_Date(std::string& sql);
/// `newUserId` is the new key of the row; the row is found by the record's key.
[[nodiscard]] bool P_MakeUpdateSQL_Date(std::string& sql, const std::string& newUserId);
[[nodiscard]] bool P_MakeUpdateSQL_Info(std::string& sql, const std::string& newUserId);
[[nodiscard]] bool P_MakeUpdateSQL_Add(std::string& sql, const std::string& newUserId);

/// Returns `count` zeros.
std::string PF_RepeatZero(std::int16_t count);

}  // namespace bas_Main_Companydata

/// Returns the select for a company, with its row of `TBL_CUSTOMER_ADD` if it has one.
std::string companyJoin(const std::string& userId);

}  // namespace orv
