#pragma once

#include <string>

namespace orv {

inline namespace bas_Main_Companydata {

/// Locks the company and loads it into the record. On false the pair holds the failure. The pair is blank if another
/// computer holds the lock, which the operator has already seen.
[[nodiscard]] bool PF_GetCompanyData(const std::string& userId);

/// Releases the lock if the load failed or no page can be shown. A lock that was taken over is kept, because a second
/// run on this computer might hold it. Does not change the pair.
void releaseAfterFailedStart(const std::string& userId);

/// Fills the cleared record from the open store, makes working copies of the photos and measures the computer. The key
/// of a new company without a row gives a new company. On false the pair holds the failure and the record is
/// incomplete.
[[nodiscard]] bool PF_SetCompanyDataStructureChng(const std::string& userId);

}  // namespace bas_Main_Companydata

}  // namespace orv
