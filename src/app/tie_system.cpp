#include "app/tie_system.h"

#include "config/settings.h"
#include "logging/write_log.h"
#include "pages/handlers/page_table.h"

namespace orv {

void tieSystem() {
    logFiles() = {.err = [] { return com().LogErrFile(); },
                  .ras = [] { return com().LogRasFile(); },
                  .snd = [] { return com().LogSndFile(); },
                  .rcv = [] { return com().LogRcvFile(); },
                  .dwl = [] { return com().LogDwlFile(); }};
    usePages(kPages);
}

}  // namespace orv
