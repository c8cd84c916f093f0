#pragma once

#include <cstdint>
#include <string>

namespace orv {

inline namespace bas_Main_Companydata {

// The statements that save a company: text only, no database work. Values stand as they are in the record; what keeps
// an apostrophe out of them is the cleaning on the way from the page. The blanks are part of the text, since the log
// writes a failed statement out. False only by a run-time failure, which the pair tells.

[[nodiscard]] bool P_MakeInsertSQL_Info(std::string& sql);
[[nodiscard]] bool P_MakeInsertSQL_Add(std::string& sql);
[[nodiscard]] bool P_MakeInsertSQL_Date(std::string& sql);
/// `newUserId`: the key that the row is to bear; the row is found by the record's.
[[nodiscard]] bool P_MakeUpdateSQL_Date(std::string& sql, const std::string& newUserId);
[[nodiscard]] bool P_MakeUpdateSQL_Info(std::string& sql, const std::string& newUserId);
[[nodiscard]] bool P_MakeUpdateSQL_Add(std::string& sql, const std::string& newUserId);

/// `count` times "0".
std::string PF_RepeatZero(std::int16_t count);

}  // namespace bas_Main_Companydata

/// The one read of a company, with its row of `TBL_CUSTOMER_ADD` where it has one.
std::string companyJoin(const std::string& userId);

}  // namespace orv
