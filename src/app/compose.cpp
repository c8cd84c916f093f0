#include "app/compose.h"

#include "adapters/http/curl_http_control.h"
#include "adapters/qt/descriptor_watch.h"
#include "app/office_store.h"
#include "config/settings.h"
#include "logging/write_log.h"
#include "pages/layout/layouts.h"
#include "platform/services.h"

namespace orv {
namespace {

CompanySendSettings sendSettings() {
    return {.url = [] { return com().ORV_URL(); },
            .cusSendService = [] { return com().ORV_CusSendService(); },
            .sendCus = [] { return com().ORV_SendCus(); },
            .timeOut = [] { return com().ORV_TimeOut(); },
            .store = [] { return com().MdbOrvEstateDB(); }};
}

}  // namespace

Composition::Composition(const std::string& programFolder)
    : paths_(installRootOf(programFolder), programFolder),
      files_(paths_),
      fileService_(files_),
      profiles_(files_, codePage_, facts_),
      registry_(installRootOf(programFolder) + "/registry.txt", codePage_),
      programs_(paths_),
      siblings_(programs_, watchDescriptor),
      sysInfo_(registry_, paths_),
      stringCheck_(codePage_),
      db_(files_, officeStore()),
      transmitEngine_(files_, officeStore()),
      pictures_(files_),
      windows_(layoutOf, forms_),
      running_(watchDescriptor, installRootOf(programFolder), [this] { windows_.toFront(); }),
      messages_(
          windows_, files_, codePage_, [] { return com().SysMsgTbl(); },
          [](const std::string& code, const std::string& text) { logError(code, text); }),
      help_(files_, [] { return com().HlpFolder(); }) {
    handIn();
}

void Composition::handIn() {
    Services& all = services();
    all.db = &db_;
    all.message = &messages_;
    all.sysInfo = &sysInfo_;
    all.stringCheck = &stringCheck_;
    all.files = &fileService_;
    all.send = [this] { return std::make_unique<HttpCompanySend>(db_, sendSettings()); };
    all.help = &help_;
    all.fileSystem = &files_;
    all.profiles = &profiles_;
    all.registry = &registry_;
    all.programs = &programs_;
    all.siblings = &siblings_;
    all.facts = &facts_;
    all.clock = &clock_;
    all.calendar = &calendar_;
    all.codePage = &codePage_;
    all.http = [this] { return std::make_unique<CurlHttpControl>(files_); };
    all.pictures = &pictures_;
    all.windows = &windows_;
    all.transmitEngine = &transmitEngine_;
    all.forms = &forms_;
    all.running = &running_;
}

}  // namespace orv
