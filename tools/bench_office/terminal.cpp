#include "terminal.h"

#include "app/sent_tables.h"
#include "config/settings.h"
#include "core/flow/start.h"
#include "core/record/globals.h"
#include "pages/forms/page_set.h"
#include "platform/forms/form_host.h"
#include "platform/services.h"
#include "platform/suite/company_send_service.h"

namespace bench {
namespace {

class PromptServer : public orv::CompanySendService {
public:
    orv::FailureRecord SendError() const override { return {}; }
    void SendPrepare(bool& ok) override { ok = true; }
    void SendCompany(const std::string& userId, std::string& id, bool& ok) override {
        ok = !orv::companyDocument(*orv::services().db, orv::sentTables(), orv::com().MdbOrvEstateDB(), userId).empty();
        id = userId;
    }
};

orv::frm_CompInp0& page() { return orv::page<orv::frm_CompInp0>(); }

int loadedCount() {
    const std::string& text = orv::tCustomerInfo.ADDRESS_GOU;
    return text.empty() ? 0 : std::stoi(text);
}

}  // namespace

Terminal::Terminal(const std::string& programFolder, std::string ledger)
    : program_(programFolder), ledger_(std::move(ledger)) {
    orv::services().send = [] { return std::make_unique<PromptServer>(); };
}

bool Terminal::open(const std::string& company) {
    const Deed deed = perform(Deed::Opened, company, [&] {
        orv::services().commandTail = company + ",1,0";
        orv::Main();
    });
    return deed == Deed::Opened;
}

bool Terminal::switchTo(const std::string& company) {
    if (company == orv::tCustomerInfo.USER_ID) {
        return true;
    }
    return perform(Deed::Switched, company, [&] { page().cbo_User_Id.setText(company); }) != Deed::Failed;
}

bool Terminal::save() {
    const std::string company = orv::tCustomerInfo.USER_ID;
    const int value = loadedCount() + 1;
    page().txt_Address_Gou.setText(std::to_string(value));
    program_.user().clear();
    Entry entry{Deed::Saved, company, {nanosecondsNow(), 0}, value, taken_};
    page().btm_Save.press();
    entry.time.to = nanosecondsNow();
    std::string failure = program_.user().failure();
    if (failure.empty() && !program_.user().received("COS05574")) {
        failure = "silent";
    }
    if (!failure.empty()) {
        entry.deed = Deed::Unsure;
        append(ledger_, {Deed::Failed, failure, entry.time, 0, {}});
    }
    append(ledger_, entry);
    return failure.empty();
}

void Terminal::leave() {
    if (orv::services().forms->activeForm() == nullptr) {
        return;
    }
    program_.user().clear();
    const std::int64_t from = nanosecondsNow();
    page().btm_Back_Menu.press();
    const std::string failure = program_.user().failure();
    if (!failure.empty()) {
        append(ledger_, {Deed::Failed, failure, {from, nanosecondsNow()}, 0, {}});
    }
}

Deed Terminal::perform(Deed wish, const std::string& company, const std::function<void()>& work) {
    program_.user().clear();
    const std::int64_t from = nanosecondsNow();
    work();
    const Span time{from, nanosecondsNow()};
    const std::string failure = program_.user().failure();
    if (!failure.empty()) {
        append(ledger_, {Deed::Failed, failure, time, 0, {}});
        return Deed::Failed;
    }
    if (program_.user().received("COS20003")) {
        append(ledger_, {Deed::Refused, company, time, 0, {}});
        return Deed::Refused;
    }
    taken_ = time;
    append(ledger_, {wish, company, time, 0, {}});
    return wish;
}

}  // namespace bench
