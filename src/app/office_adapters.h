#pragma once

#include "adapters/machine/file_deletion.h"
#include "adapters/machine/ini_reader.h"
#include "adapters/pictures/picture_files.h"
#include "adapters/store/store_service.h"
#include "adapters/store/transmit_tables.h"
#include "adapters/system/system_adapters.h"
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
    SystemFacts facts;
    SystemClock clock;
    SystemPaths paths;
    SystemFiles files;
    FileDeletion fileService;
    IniReader profiles;
    SystemRegistry registry;
    MeasuredSystem sysInfo;
    StringCheck stringCheck;
    EraCalendar calendar;
    StoreService db;
    TransmitTables transmitEngine;
    PictureFiles pictures;
};

}  // namespace orv
