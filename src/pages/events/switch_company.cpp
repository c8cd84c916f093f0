#include "pages/events/switch_company.h"

#include "binding/record_to_page.h"
#include "core/flow/company_load.h"
#include "core/record/globals.h"
#include "logging/handled.h"
#include "logging/messages.h"
#include "logging/trap.h"
#include "pages/frame/page_start.h"
#include "store/data_lock.h"
#include "store/store_session.h"

namespace orv {
namespace {

/// Sets the list to the company in force. That raises click again, which ends at once since nothing differs.
void backToCurrent(PageForm& form) {
    const auto notListed = caught([&] { form.cbo_User_Id.setText(tCustomerInfo.USER_ID); });
    static_cast<void>(notListed);
}

bool staysByAnswer(const std::string& wish) {
    return !gSaving && staysAfter(wish == kNewCompany ? "COS20002" : "COS20001");
}

enum class Moved { Yes, Refused, Failed };

/// Looks at the lock of the new company, releases the old one, takes the new one; no transaction holds the three
/// together.
Moved moveLock(const std::string& wish) {
    std::string holder;
    switch (PF_DataLockCheck(wish, kLockType, kLockNumber, holder)) {
        case kLockedElsewhere:
            tell("COS20003", {wish});
            return Moved::Refused;
        case kLockedHere:
            if (!PF_DataUnlock(wish, kLockType, kLockNumber)) {
                return Moved::Failed;
            }
            break;
        case kNotLocked:
            break;
        default:
            return Moved::Failed;
    }
    const bool moved =
        PF_DataUnlock(tCustomerInfo.USER_ID, kLockType, kLockNumber) && PF_DataLock(wish, kLockType, kLockNumber);
    return moved ? Moved::Yes : Moved::Failed;
}

/// The record keeps the key of the company that is locked now, so that leaving, or a new switch, releases it.
void rememberBrokenLoad(const std::string& wish) {
    gLoadFailure = {gErrMsg, gErrCode};
    tCustomerInfo.USER_ID = wish;
}

bool loadCompany(const std::string& label, const std::string& wish) {
    gLoadFailure = {};
    const bool loaded =
        trapped(label, [&] { return PF_SetCompanyDataStructureInis() && PF_SetCompanyDataStructureChng(wish); });
    if (!loaded) {
        rememberBrokenLoad(wish);
    }
    return loaded;
}

bool showCompany(PageForm& form, const std::string& label) {
    form.ready = trapped(label, [&] { return showRecordOn(form.number); });
    if (form.ready) {
        showTitle(form);
    }
    return form.ready;
}

void loadAndShow(PageForm& form, const std::string& label, const std::string& wish) {
    form.ready = false;
    if (!loadCompany(label, wish) || !showCompany(form, label)) {
        form.failure = {gErrMsg, gErrCode};
        report();
    }
}

}  // namespace

void cbo_User_Id_Click(PageForm& form) {
    const std::string wish = form.cbo_User_Id.text();
    if (wish.empty() || wish == tCustomerInfo.USER_ID) {
        return;
    }
    if (staysByAnswer(wish)) {
        backToCurrent(form);
        return;
    }
    gSaved = false;
    const std::string label = "[ " + form.tag() + " cbo_User_Id_Click ]";
    StoreSession session;
    if (!session.openFresh()) {
        report();
        return;
    }
    switch (moveLock(wish)) {
        case Moved::Yes:
            loadAndShow(form, label, wish);
            break;
        case Moved::Refused:
            backToCurrent(form);
            break;
        case Moved::Failed:
            backToCurrent(form);
            report();
            break;
    }
}

}  // namespace orv
