#include "app/compose.h"

#include "adapters/qt/application.h"
#include "config/settings.h"
#include "logging/write_log.h"
#include "pages/handlers/form_layouts.h"
#include "platform/services.h"
#include "version.h"

namespace orv {

Composition::Composition(const std::string& programFolder)
    : office_(programFolder),
      programs_(office_.paths),
      siblings_(programs_, watchHandle),
      windows_(findLayout, forms_),
      running_(watchHandle, programFolder, [this] { windows_.bringToFront(); }),
      messages_(
          windows_, office_.files, office_.codePage, [] { return com().SysMsgTbl(); },
          [](const std::string& code, const std::string& text) { logError(code, text); }),
      help_(
          office_.files, [] { return com().HlpFolder(); }, kVersion) {
    Services& all = services();
    all.message = &messages_;
    all.help = &help_;
    all.programs = &programs_;
    all.siblings = &siblings_;
    all.windows = &windows_;
    all.forms = &forms_;
    all.running = &running_;
}

}  // namespace orv
