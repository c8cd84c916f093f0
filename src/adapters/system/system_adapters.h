#pragma once

// The adapters of the operating system for which the program is built, under names that all systems share.
#include "adapters/system/measured_system.h"
#include "adapters/system/system_facts.h"
#include "adapters/system/system_files.h"
#include "adapters/system/system_parts.h"
#include "adapters/system/system_registry.h"
#ifdef _WIN32

#include "adapters/win32/running_events.h"
#include "adapters/win32/sibling_windows.h"
#include "adapters/win32/win32_starter.h"

namespace orv {

using SystemStarter = Win32Starter;
using SystemSiblings = SiblingWindows;
using SystemRuns = RunningEvents;

}  // namespace orv

#else

#include "adapters/posix/posix_starter.h"
#include "adapters/posix/running_sockets.h"
#include "adapters/posix/sibling_socket.h"

namespace orv {

using SystemStarter = PosixStarter;
using SystemSiblings = SiblingSocket;
using SystemRuns = RunningSockets;

}  // namespace orv

#endif
