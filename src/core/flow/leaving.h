#pragma once

namespace orv {

/// Asks, unless a complete save has run since the company was loaded. True: the operator wants to leave.
[[nodiscard]] bool wantsToLeave();

/// Releases the company and starts the caller again. False: the pair tells why, and the program stays open.
[[nodiscard]] bool releaseAndStartCaller();

/// Runs the command line of the settings, or else the menu program.
void startCaller();

inline namespace bas_Main_Companydata {

/// Unloads every form that is still loaded.
bool PF_Form_Clean();

}  // namespace bas_Main_Companydata

}  // namespace orv
