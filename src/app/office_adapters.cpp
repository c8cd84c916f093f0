#include "app/office_adapters.h"

#include "adapters/http/curl_http_control.h"
#include "adapters/http/http_company_send.h"
#include "app/office_store.h"
#include "app/sent_tables.h"
#include "config/settings.h"
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

OfficeAdapters::OfficeAdapters(const std::string& programFolder)
    : paths(findInstallRoot(programFolder), programFolder),
      files(paths),
      fileService(files),
      profiles(files, codePage, facts),
      registry(findInstallRoot(programFolder), codePage),
      sysInfo(registry, paths),
      stringCheck(codePage),
      db(files, officeStore()),
      transmitEngine(files, officeStore()),
      pictures(files) {
    Services& all = services();
    all.db = &db;
    all.sysInfo = &sysInfo;
    all.stringCheck = &stringCheck;
    all.files = &fileService;
    all.send = [this] { return std::make_unique<HttpCompanySend>(db, sentTables(), sendSettings()); };
    all.fileSystem = &files;
    all.profiles = &profiles;
    all.registry = &registry;
    all.facts = &facts;
    all.clock = &clock;
    all.calendar = &calendar;
    all.codePage = &codePage;
    all.http = [this] { return std::make_unique<CurlHttpControl>(files); };
    all.pictures = &pictures;
    all.transmitEngine = &transmitEngine;
}

}  // namespace orv
