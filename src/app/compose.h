#pragma once

#include "adapters/qt/manual/manual_help.h"
#include "adapters/qt/qt_window_system.h"
#include "adapters/text/table_messages.h"
#include "app/office_adapters.h"
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
    OfficeAdapters office_;
    SystemStarter programs_;
    SystemSiblings siblings_;
    FormHost forms_;
    QtWindowSystem windows_;
    SystemRuns running_;
    TableMessages messages_;
    ManualHelp help_;
};

}  // namespace orv
