#include "headless.h"

#include <algorithm>
#include <array>

#include "adapters/http/company_document.h"
#include "adapters/http/curl_http_control.h"
#include "app/office_store.h"
#include "app/tie_system.h"
#include "config/settings.h"
#include "platform/services.h"
#include "platform/suite/company_send_service.h"

namespace bench {
namespace {

constexpr const char* kFailure = "COSERR01";
/// The questions before a switch and before leaving, the message after a save, and that the company is in use.
constexpr auto kNoFailures =
    std::to_array<std::string_view>({"COS20001", "COS20002", "ADD00010", "COS05574", "COS20003"});

class PromptServer : public orv::CompanySendService {
public:
    explicit PromptServer(orv::DbService& db) : db_(db) {}

    orv::FailureRecord SendError() const override { return {}; }
    void SendPrepare(bool& ok) override { ok = true; }
    void SendCompany(const std::string& userId, std::string& id, bool& ok) override {
        ok = !orv::companyDocument(db_, orv::com().MdbOrvEstateDB(), userId).empty();
        id = userId;
    }

private:
    orv::DbService& db_;
};

}  // namespace

bool Patience::ShowMessage(const std::string& id, const orv::Values& args) {
    told_.push_back({id, args.empty() ? "" : orv::toText(args.front())});
    return true;
}

bool Patience::wasTold(const std::string& id) const {
    return std::ranges::any_of(told_, [&](const Message& message) { return message.id == id; });
}

std::string Patience::failure() const {
    const auto found = std::ranges::find_if(
        told_, [](const Message& message) { return std::ranges::find(kNoFailures, message.id) == kNoFailures.end(); });
    if (found == told_.end()) {
        return {};
    }
    return found->id == kFailure && !found->code.empty() ? found->code : found->id;
}

Headless::Headless(const std::string& programFolder)
    : paths_(orv::installRootOf(programFolder), programFolder),
      files_(paths_),
      fileService_(files_),
      profiles_(files_, codePage_, facts_),
      registry_(orv::installRootOf(programFolder) + "/registry.txt", codePage_),
      sysInfo_(registry_, paths_),
      stringCheck_(codePage_),
      db_(files_, orv::officeStore()),
      traced_(db_) {
    handIn();
    orv::tieSystem();
}

void Headless::handIn() {
    orv::Services& all = orv::services();
    all.db = &traced_;
    all.message = &patience_;
    all.sysInfo = &sysInfo_;
    all.stringCheck = &stringCheck_;
    all.files = &fileService_;
    all.send = [this] { return std::make_unique<PromptServer>(traced_); };
    all.fileSystem = &files_;
    all.profiles = &profiles_;
    all.registry = &registry_;
    all.programs = &programs_;
    all.siblings = &programs_;
    all.facts = &facts_;
    all.clock = &clock_;
    all.calendar = &calendar_;
    all.codePage = &codePage_;
    all.http = [this] { return std::make_unique<orv::CurlHttpControl>(files_); };
    all.windows = &windows_;
    all.forms = &forms_;
}

}  // namespace bench
