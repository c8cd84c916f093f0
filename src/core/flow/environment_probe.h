#pragma once

#include <string>

namespace orv {

/// Measures the computer into the record. A measurement that fails leaves its field blank, writes a log record, and
/// does not stop the others.
void probeEnvironment();

inline namespace bas_Main_Companydata {

/// The Windows folder with a separator at its end, or blank.
std::string PF_GetWindowsPath();

}  // namespace bas_Main_Companydata

}  // namespace orv
