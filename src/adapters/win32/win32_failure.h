#pragma once

#include <functional>
#include <string>

#include "adapters/win32/windows_api.h"

namespace orv {

/// Throws the RunTimeError for an error code of the system. The only place that converts these codes.
[[noreturn]] void raiseError(DWORD error);
/// Throws for the calling thread's last error.
[[noreturn]] void raiseLastError();
/// Throws for a link or a second name in place of an office's file.
[[noreturn]] void raiseLink();

/// True if the error says that there is nothing with that name, or that the name is not possible.
bool saysNothingIsThere(DWORD error);

/// Repeats a call for two seconds while another program, such as a virus scanner, has the file open. Returns the last
/// result. `call` returns false and sets the thread's last error.
bool retryWhileInUse(const std::function<bool()>& call);

}  // namespace orv
