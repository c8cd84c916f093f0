#pragma once

namespace orv {

inline namespace bas_Main_Companydata {

/// Reads the argument string, locks and loads the company and shows page 0. When that fails the operator is told and
/// the caller started again; with no argument at all nothing is started. With no form loaded afterwards the process
/// ends.
void Main();

}  // namespace bas_Main_Companydata

}  // namespace orv
