#include "app/tie_system.h"

#include "config/settings.h"
#include "logging/log_files.h"
#include "pages/handlers/wiring.h"

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
