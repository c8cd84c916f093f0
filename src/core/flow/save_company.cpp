#include "core/flow/save_company.h"

#include <algorithm>
#include <array>
#include <memory>

#include "binding/page_to_record.h"
#include "core/flow/company_write.h"
#include "core/flow/photo_files.h"
#include "core/record/globals.h"
#include "logging/messages.h"
#include "logging/trap.h"
#include "logging/write_log.h"
#include "pages/forms/master_lists.h"
#include "platform/forms/busy.h"
#include "platform/forms/form_host.h"
#include "platform/scope.h"
#include "platform/services.h"
#include "platform/suite/company_send_service.h"
#include "platform/utf8.h"
#include "store/rows.h"
#include "store/store_session.h"
#include "transmission/image_upload.h"
#include "validation/check_input_data.h"

namespace orv {
namespace {

constexpr std::size_t kIdLength = 9;
constexpr const char* kSaving = "保存しています…";

/// State that the steps of one save share.
struct SaveRun {
    std::unique_ptr<CompanySendService> service;
    bool prepared = false;
    /// True once the server has accepted the company.
    bool sent = false;
    std::string id = {};
    std::string target = {};
};

void prepareSending(SaveRun& run) {
    run.service->SendPrepare(run.prepared);
    if (!run.prepared) {
        setPair(run.service->SendError());  // the save continues without sending
    }
}

/// A failed upload does not make the save fail.
void sendImages() {
    const auto failure = caught([] {
        services().forms->load(sendForm());
        PF_ImageDataTransfer();
    });
    services().forms->unload(sendForm(), UnloadMode::Code);
    dropSendForm();
    if (failure) {
        logError(failure->number(), failure->description());
    }
}

void sendCompany(SaveRun& run) {
    Form* active = services().forms->activeForm();
    if (active != nullptr) {
        active->setEnabled(false);
    }
    run.service->SendCompany(tCustomerInfo.USER_ID, run.id, run.sent);
    if (active != nullptr) {
        active->setEnabled(true);
        services().forms->show(*active);
    }
}

/// Only a new company takes the server's number, and only a complete one. Any other answer is ignored.
std::string chooseNumber(const SaveRun& run) {
    return isNew() && toCharacters(run.id).size() == kIdLength ? run.id : tCustomerInfo.USER_ID;
}

bool send(SaveRun& run) {
    prepareSending(run);
    sendImages();
    if (run.prepared) {
        services().windows->showWork("会社情報を送信しています…");
        sendCompany(run);
    }
    services().windows->showWork(kSaving);
    renewWorkingCopies();
    run.target = chooseNumber(run);
    return run.sent || failFrom(run.service->SendError());
}

/// True if no table has a row with the number. On false the pair is `taken`, or says why the store cannot be read.
bool isUnused(const std::string& number, const FailureRecord& taken) {
    clearPair();
    const std::array tables{kCountInfo, kCountAdd, kCountDate};
    if (std::ranges::all_of(tables, [&](std::int16_t table) { return isRowMissing(number, table); })) {
        return true;
    }
    const bool isKnown = gErrMsg.empty() && gErrCode.empty();
    return isKnown && failFrom(taken);
}

/// A number that the store already has belongs to another company, so this one must not take it.
bool mayMoveTo(const std::string& target) {
    return target == tCustomerInfo.USER_ID ||
           isUnused(target, {"サーバーが付けた番号「" + target +
                                 "」は、別の会社がすでに使っています。この会社は番号のないまま保存してあります。"
                                 "サーバーの管理者に番号を確認してもらってから、もう一度保存してください。",
                             "SAVE0002"});
}

bool writeAnswer(SaveRun& run) {
    if (!mayMoveTo(run.target)) {
        run.target = tCustomerInfo.USER_ID;
        return false;
    }
    tCustomerInfo.PWD_CHG_FLG = kPasswordSent;
    tCustomerInfo.SEND_FLAG = false;
    gGivenNumber = run.target == tCustomerInfo.USER_ID ? "" : run.target;
    if (!PF_SaveCompanyDataOther() || !PF_SetCompanyDataSave(run.target)) {
        return false;
    }
    renewWorkingCopies();
    gSaved = true;
    theContext.unsavedChanges = false;
    return true;
}

bool writeAndSend(SaveRun& run) {
    if (!valuesFitStatements(PhotoFields::Chosen)) {
        return false;
    }
    const Working working(kSaving);
    if (isNew()) {
        tCustomerInfo.PWD_CHG_FLG = kPasswordChanged;
    }
    const ScopeExit workingPaths(restoreWorkingPaths);
    return PF_SaveCompanyDataOther() && PF_SetCompanyDataSave(tCustomerInfo.USER_ID) && send(run) && writeAnswer(run);
}

/// False if an earlier save has already stored this company under the server's number. Its page could not be opened, or
/// the store broke before it confirmed the write. Saving again would create a second company.
bool isGivenNumberFree() {
    clearPair();
    return gGivenNumber.empty() ||
           isUnused(gGivenNumber, {"この会社は番号「" + gGivenNumber +
                                       "」で登録されました。ユーザーIDの一覧からその番号を選ぶか、"
                                       "メニューへ戻って開き直してください。",
                                   "SAVE0001"});
}

bool save(PageForm& form, SaveRun& run, StoreSession& session) {
    if (!PF_SetData_tCustomerInfo(form.name()) || !session.open() || !isGivenNumberFree()) {
        return false;
    }
    run.service = services().send();
    return !PF_CheckInputData(form) || writeAndSend(run);
}

/// Reads the list of companies again. On failure the list holds at least the current company and the entry for a new
/// one. The pair keeps the result of the save.
void refreshCompanies(ComboBox& combo) {
    const PairKeeper resultOfTheSave;
    const std::string current = tCustomerInfo.USER_ID;
    const bool filled = fillCompanies(combo);
    if (!filled) {
        combo.clear();
        combo.addItem(current);
        if (!isNew()) {
            combo.addItem(std::string(kNewCompany));
        }
    }
    static_cast<void>(caught([&] { combo.setText(current); }));  // the page then shows no number
}

}  // namespace

bool bas_Main_Companydata::PF_SndCos(PageForm& form, std::string& userId) {
    if (gLoadFailure) {
        return failFrom(*gLoadFailure);
    }
    if (!form.ready) {
        return failFrom(form.failure);
    }
    BusyForm disabled(form);
    services().forms->setPointer(kPointerHourglass);
    SaveRun run;
    StoreSession session;
    const bool result = trapped("[ PF_SndCos ]", [&] { return save(form, run, session); });
    refreshCompanies(form.cbo_User_Id);
    userId = run.target.empty() ? tCustomerInfo.USER_ID : run.target;
    static_cast<void>(session.close());  // reported through the pair
    services().forms->setPointer(kPointerDefault);
    if (run.sent) {
        showMessage("COS05574");
    }
    disabled.enable();
    return result;
}

}  // namespace orv
