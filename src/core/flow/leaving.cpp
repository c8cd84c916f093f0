#include "core/flow/leaving.h"

#include <vector>

#include "config/settings.h"
#include "core/record/globals.h"
#include "logging/messages.h"
#include "platform/forms/form_host.h"
#include "platform/machine/program_starter.h"
#include "platform/services.h"
#include "store/company_lock.h"
#include "store/store_session.h"

namespace orv {

bool wantsToLeave() { return gSaved || confirm("ADD00010"); }

bool releaseAndStartCaller() {
    StoreSession session;
    if (!session.openFresh() || !PF_DataUnlock(tCustomerInfo.USER_ID, kLockType, kLockNumber)) {
        return false;
    }
    giveUpCompany(tCustomerInfo.USER_ID);
    startCaller();
    return true;
}

void startCaller() {
    const std::string command = com().ORV_STARTPARA("USER_");
    services().programs->start(command.empty() ? com().BinMenuExe() + " COS" : command);
}

bool bas_Main_Companydata::PF_Form_Clean() {
    const std::vector<Form*> loaded = services().forms->forms();
    for (Form* form : loaded) {
        services().forms->unload(*form, UnloadMode::Code);
    }
    return true;
}

}  // namespace orv
