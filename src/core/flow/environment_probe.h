#pragma once

#include <string>

namespace orv {

/// Measures the computer and fills the record. A failed measurement leaves its field blank, writes a log record and
/// does not stop the others.
void probeEnvironment();

inline namespace bas_Main_Companydata {

/// Returns the Windows folder with a trailing separator, or "".
std::string PF_GetWindowsPath();

}  // namespace bas_Main_Companydata

}  // namespace orv
