#pragma once

#include "adapters/http/http_company_send.h"
#include "adapters/pictures/picture_files.h"
#include "adapters/posix/ini_reader.h"
#include "adapters/posix/install_paths.h"
#include "adapters/posix/posix_facts.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_starter.h"
#include "adapters/posix/posix_sys_info.h"
#include "adapters/posix/registry_file.h"
#include "adapters/posix/running_sockets.h"
#include "adapters/posix/sibling_socket.h"
#include "adapters/qt/manual/manual_help.h"
#include "adapters/qt/qt_window_system.h"
#include "adapters/store/store_service.h"
#include "adapters/store/transmit_tables.h"
#include "adapters/text/cp932.h"
#include "adapters/text/era_calendar.h"
#include "adapters/text/string_check.h"
#include "adapters/text/table_messages.h"
#include "platform/forms/form_host.h"
#include "platform/scope.h"

namespace orv {

/// All adapters of the program. Constructs them in the order of their dependencies and registers them as services. The
/// one object of this class must exist while the program runs.
class Composition : NonCopyable {
public:
    explicit Composition(const std::string& programFolder);
    ~Composition() = default;

private:
    void handIn();

    Cp932 codePage_;
    PosixFacts facts_;
    PosixClock clock_;
    InstallPaths paths_;
    PosixFiles files_;
    PosixFileService fileService_;
    IniReader profiles_;
    RegistryFile registry_;
    PosixStarter programs_;
    SiblingSocket siblings_;
    PosixSysInfo sysInfo_;
    StringCheck stringCheck_;
    EraCalendar calendar_;
    StoreService db_;
    TransmitTables transmitEngine_;
    PictureFiles pictures_;
    FormHost forms_;
    QtWindowSystem windows_;
    RunningSockets running_;
    TableMessages messages_;
    ManualHelp help_;
};

}  // namespace orv
