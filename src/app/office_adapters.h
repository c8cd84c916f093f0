#pragma once

#include "adapters/pictures/picture_files.h"
#include "adapters/posix/ini_reader.h"
#include "adapters/posix/install_paths.h"
#include "adapters/posix/posix_facts.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_sys_info.h"
#include "adapters/posix/registry_file.h"
#include "adapters/store/store_service.h"
#include "adapters/store/transmit_tables.h"
#include "adapters/text/cp932.h"
#include "adapters/text/era_calendar.h"
#include "adapters/text/string_check.h"
#include "platform/scope.h"

namespace orv {

/// The adapters of an office that need no window. The constructor enters them in `services()`. The members are in the
/// order in which they depend on each other.
struct OfficeAdapters : NonCopyable {
    explicit OfficeAdapters(const std::string& programFolder);

    Cp932 codePage;
    PosixFacts facts;
    PosixClock clock;
    InstallPaths paths;
    PosixFiles files;
    PosixFileService fileService;
    IniReader profiles;
    RegistryFile registry;
    PosixSysInfo sysInfo;
    StringCheck stringCheck;
    EraCalendar calendar;
    StoreService db;
    TransmitTables transmitEngine;
    PictureFiles pictures;
};

}  // namespace orv
