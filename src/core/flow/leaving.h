#pragma once

namespace orv {

/// True if the operator wants to leave. Asks unless a complete save has run since the company was loaded.
[[nodiscard]] bool wantsToLeave();

/// Releases the company and starts the caller again. On false the pair holds the failure and the program stays open.
[[nodiscard]] bool releaseAndStartCaller();

/// Runs the command line from the settings, or the menu program if there is none.
void startCaller();

inline namespace bas_Main_Companydata {

/// Unloads every form that is still loaded.
bool PF_Form_Clean();

}  // namespace bas_Main_Companydata

}  // namespace orv
