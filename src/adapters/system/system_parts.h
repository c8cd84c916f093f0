#pragma once

// The parts that the adapters of this folder use, under names that all systems share.
#ifdef _WIN32

#include "adapters/win32/drive_paths.h"
#include "adapters/win32/registry_views.h"
#include "adapters/win32/run_folder.h"
#include "adapters/win32/win32_file.h"

namespace orv {

using SystemPaths = DrivePaths;
using SystemPlace = HeldPlace;
using SystemHandle = Win32Handle;
using SystemFile = Win32File;
using SystemReplacement = FileNextTo;
using SystemWorkFolder = RunFolder;
using SystemKey = RegistryViews;

}  // namespace orv

#else

#include "adapters/posix/install_paths.h"
#include "adapters/posix/native_file.h"
#include "adapters/posix/work_folder.h"

namespace orv {

using SystemPaths = InstallPaths;
using SystemPlace = FilePlace;
using SystemHandle = Descriptor;
using SystemFile = NativeFile;
using SystemReplacement = ReplacementFile;
using SystemWorkFolder = WorkFolder;
/// The name of a key, with that of its hive.
using SystemKey = std::string;

}  // namespace orv

#endif
