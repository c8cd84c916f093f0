#pragma once

// The adapters of the operating system for which the program is built, under names that all systems share.
#ifdef _WIN32

#include "adapters/win32/drive_paths.h"
#include "adapters/win32/running_events.h"
#include "adapters/win32/sibling_windows.h"
#include "adapters/win32/win32_facts.h"
#include "adapters/win32/win32_files.h"
#include "adapters/win32/win32_registry.h"
#include "adapters/win32/win32_starter.h"
#include "adapters/win32/win32_sys_info.h"

namespace orv {

using SystemPaths = DrivePaths;
using SystemFiles = Win32Files;
using SystemFacts = Win32Facts;
using SystemClock = Win32Clock;
using SystemRegistry = Win32Registry;
using SystemStarter = Win32Starter;
using MeasuredSystem = Win32SysInfo;
using SystemSiblings = SiblingWindows;
using SystemRuns = RunningEvents;

/// Returns the registry of an install, found by the folder of the running program.
inline SystemRegistry systemRegistry(const std::string&, const CodePage& codePage) { return SystemRegistry(codePage); }

}  // namespace orv

#else

#include "adapters/posix/install_paths.h"
#include "adapters/posix/posix_facts.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_starter.h"
#include "adapters/posix/posix_sys_info.h"
#include "adapters/posix/registry_file.h"
#include "adapters/posix/running_sockets.h"
#include "adapters/posix/sibling_socket.h"

namespace orv {

using SystemPaths = InstallPaths;
using SystemFiles = PosixFiles;
using SystemFacts = PosixFacts;
using SystemClock = PosixClock;
using SystemRegistry = RegistryFile;
using SystemStarter = PosixStarter;
using MeasuredSystem = PosixSysInfo;
using SystemSiblings = SiblingSocket;
using SystemRuns = RunningSockets;

/// Returns the registry of an install, found by the folder of the running program.
inline SystemRegistry systemRegistry(const std::string& programFolder, const CodePage& codePage) {
    return {findInstallRoot(programFolder) + "/registry.txt", codePage};
}

}  // namespace orv

#endif
