#pragma once

namespace orv {

inline namespace bas_Main_Companydata {

/// Reads the arguments, locks and loads the company and shows page 0. On failure shows a message and starts the caller
/// again; without any argument starts nothing. The process ends if no form is loaded afterwards.
void Main();

}  // namespace bas_Main_Companydata

}  // namespace orv
