#include "core/flow/start.h"

#include <string>
#include <vector>

#include "core/flow/company_load.h"
#include "core/flow/leaving.h"
#include "core/record/globals.h"
#include "logging/messages.h"
#include "logging/trap.h"
#include "logging/write_log.h"
#include "pages/forms/page_set.h"
#include "platform/ascii.h"
#include "platform/forms/busy.h"
#include "platform/forms/form_host.h"
#include "platform/services.h"
#include "validation/text/conversions.h"

namespace orv {
namespace {

constexpr const char* kLabel = "[ COS main ]";

std::vector<std::string> splitAtCommas(const std::string& tail) {
    std::vector<std::string> elements(1);
    for (const char character : tail) {
        if (character == ',') {
            elements.emplace_back();
        } else {
            elements.back() += character;
        }
    }
    return elements;
}

/// The third flag has the opposite meaning of the second.
void readArgument(const std::string& tail) {
    const std::vector<std::string> elements = splitAtCommas(tail);
    gUserId = elements.at(0);
    gMultiCompany = toNumber(elements.at(1)) != 0;
    gAddressByMaster = toNumber(elements.at(2)) == 0;
}

bool showFirstPage() {
    const bool shown = trapped(kLabel, [] { services().forms->show(page<frm_CompInp0>()); });
    if (!shown) {
        PF_Form_Clean();
        releaseAfterFailedStart(gUserId);
    }
    return shown;
}

bool load() {
    const Working working("会社情報を開いています…");
    return PF_GetCompanyData(gUserId);
}

bool begin(const std::string& tail) {
    readArgument(tail);
    theContext.unsavedChanges = false;
    return load() && showFirstPage();
}

void reportPair() {
    const std::string code = gErrCode;
    const std::string text = gErrMsg;
    showMessage("COSERR01", {code, text});
    logError(code, text);
}

/// If the caller cannot be started either, log it.
void returnToCaller() {
    if (const auto failure = caught(startCaller)) {
        logError(failure->number(), failure->description());
    }
}

}  // namespace

void bas_Main_Companydata::Main() {
    const std::string& tail = services().commandTail;
    if (trimmed(tail).empty()) {
        setPair({"会社情報起動引数が取得できませんでした。", "EUSR7897"});
        reportPair();
        return;
    }
    if (trapped(kLabel, [&] { return begin(tail); })) {
        return;
    }
    if (!gErrMsg.empty()) {
        reportPair();
    }
    returnToCaller();
    clearPair();
}

}  // namespace orv
