#pragma once

#include <string>

namespace orv {

inline namespace bas_Main_Companydata {

/// Locks the company and brings it into the record. False: the pair tells why, or is blank when another computer holds
/// the company, which the operator has been told.
[[nodiscard]] bool PF_GetCompanyData(const std::string& userId);

/// Releases the company again if its load failed, or if no page can be shown. A lock that was taken over stays: it may
/// belong to a second run on this computer. The pair stays as it is.
void releaseAfterFailedStart(const std::string& userId);

/// Fills the cleared record from the open store, takes working copies of the photos and measures the computer. The
/// marker without a row is a new company. False: the pair tells why; the record is left as far as it got.
[[nodiscard]] bool PF_SetCompanyDataStructureChng(const std::string& userId);

}  // namespace bas_Main_Companydata

}  // namespace orv
