#pragma once

// The adapters of the operating system for which the program is built, under names that all systems share.
#include "adapters/system/measured_system.h"
#include "adapters/system/system_facts.h"
#include "adapters/system/system_files.h"
#include "adapters/system/system_parts.h"
#ifdef _WIN32

#include "adapters/win32/running_events.h"
#include "adapters/win32/sibling_windows.h"
#include "adapters/win32/win32_registry.h"
#include "adapters/win32/win32_starter.h"

namespace orv {

using SystemRegistry = Win32Registry;
using SystemStarter = Win32Starter;
using SystemSiblings = SiblingWindows;
using SystemRuns = RunningEvents;

/// Returns the registry of an install, found by the folder of the running program.
inline SystemRegistry systemRegistry(const std::string&, const CodePage& codePage) { return SystemRegistry(codePage); }

}  // namespace orv

#else

#include "adapters/posix/posix_starter.h"
#include "adapters/posix/registry_file.h"
#include "adapters/posix/running_sockets.h"
#include "adapters/posix/sibling_socket.h"

namespace orv {

using SystemRegistry = RegistryFile;
using SystemStarter = PosixStarter;
using SystemSiblings = SiblingSocket;
using SystemRuns = RunningSockets;

/// Returns the registry of an install, found by the folder of the running program.
inline SystemRegistry systemRegistry(const std::string& programFolder, const CodePage& codePage) {
    return {findInstallRoot(programFolder) + "/registry.txt", codePage};
}

}  // namespace orv

#endif
