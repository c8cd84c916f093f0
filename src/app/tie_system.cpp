#include "app/tie_system.h"

#include "config/settings.h"
#include "logging/write_log.h"
#include "pages/handlers/page_handlers.h"

namespace orv {

void tieSystem() {
    logFiles() = {.err = [] { return com().LogErrFile(); },
                  .ras = [] { return com().LogRasFile(); },
                  .snd = [] { return com().LogSndFile(); },
                  .rcv = [] { return com().LogRcvFile(); },
                  .dwl = [] { return com().LogDwlFile(); }};
    wirePages();
}

}  // namespace orv
