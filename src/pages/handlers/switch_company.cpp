#include "pages/handlers/frame_handlers.h"

#include <utility>

#include "core/flow/company_load.h"
#include "core/record/globals.h"
#include "logging/handled.h"
#include "logging/messages.h"
#include "logging/trap.h"
#include "pages/frame/page_frame.h"
#include "platform/scope.h"
#include "store/company_lock.h"
#include "store/store_session.h"

namespace orv {
namespace {

/// Selects the current company in the list, or nothing if the list does not contain it. Any other selection would give
/// the record the key of another company.
void reselectCurrent(PageForm& form) {
    const FlagGuard byCode(form.companySetByCode);
    ComboBox& list = form.cbo_User_Id;
    if (caught([&] { list.setText(tCustomerInfo.USER_ID); })) {
        static_cast<void>(caught([&] { list.setListIndex(-1); }));  // failures cannot be reported here
    }
}

/// False for a company that could not be loaded or shown, so that selecting it again tries again.
bool isOnScreen(const PageForm& form, const std::string& userId) {
    return userId == tCustomerInfo.USER_ID && form.ready && !gLoadFailure;
}

bool isSwitchDeclined(const std::string& wish) {
    return !gSaving && !confirm(wish == kNewCompany ? "COS20002" : "COS20001");
}

/// The record keeps the key of the company that is now locked, so that leaving or another switch releases it.
void rememberBrokenLoad(const std::string& wish) {
    gLoadFailure = FailureRecord{gErrMsg, gErrCode};
    tCustomerInfo.USER_ID = wish;
}

bool loadCompany(const std::string& label, const std::string& wish) {
    gLoadFailure.reset();
    theContext.unsavedChanges = false;
    gGivenNumber.clear();
    const bool loaded =
        trapped(label, [&] { return PF_SetCompanyDataStructureInis() && PF_SetCompanyDataStructureChng(wish); });
    if (!loaded) {
        rememberBrokenLoad(wish);
    }
    return loaded;
}

/// A page whose start failed needs its lists first. Without them it would return blanks.
bool fillPage(PageForm& form, const std::string& label, bool listsThere) {
    showTitle(form);
    const PageEntry& page = pageEntry(form.number);
    form.ready = trapped(label, [&] { return (listsThere || page.fillLists()) && page.show(); });
    return form.ready;
}

bool loadAndShow(PageForm& form, const std::string& label, const std::string& wish) {
    const bool wasReady = std::exchange(form.ready, false);
    const bool shown = loadCompany(label, wish) && fillPage(form, label, wasReady);
    if (!shown) {
        form.failure = {gErrMsg, gErrCode};
    }
    return shown;
}

bool switchTo(PageForm& form, const std::string& label, const std::string& wish, StoreSession& session) {
    ScopeExit listBack([&] { reselectCurrent(form); });
    if (isSwitchDeclined(wish)) {
        return true;
    }
    gSaved = false;
    if (!session.openFresh()) {
        return false;
    }
    const CompanyLock lock = lockCompany(wish, tCustomerInfo.USER_ID);
    if (lock == CompanyLock::Refused || lock == CompanyLock::Failed) {
        return lock == CompanyLock::Refused;
    }
    listBack.disarm();
    return loadAndShow(form, label, wish);
}

}  // namespace

void cbo_User_Id_Click(PageForm& form) {
    const std::string wish = form.cbo_User_Id.text();
    if (form.companySetByCode || wish.empty() || isOnScreen(form, wish)) {
        return;
    }
    const std::string label = "[ " + form.tag() + " cbo_User_Id_Click ]";
    StoreSession session;
    handled(label, [&] { return switchTo(form, label, wish, session); });
}

}  // namespace orv
