#include "pages/frame/page_frame.h"

#include "binding/page_to_record.h"
#include "logging/trap.h"
#include "pages/forms/control_helpers.h"
#include "pages/forms/page_set.h"
#include "platform/forms/form_host.h"
#include "platform/scope.h"
#include "platform/services.h"

namespace orv {
namespace {

bool bringUp(PageForm& target, PageForm& current) {
    if (!PF_IsFormLoaded(target)) {
        return PF_ShowTargetForm(target, current);
    }
    if (!target.visible()) {
        services().forms->show(target);
        services().forms->unload(current, UnloadMode::Code);
    }
    return true;
}

}  // namespace

bool PF_Change_Frm_CompInp(std::int16_t target, PageForm& current) {
    services().forms->setPointer(kPointerHourglass);
    const ScopeExit pointerBack([] { services().forms->setPointer(kPointerDefault); });
    return trapped("[ PF_Change_Frm_CompInp ] ", [&] {
        const bool exists = target >= 0 && target < kPageCount;
        if (!PF_SetData_tCustomerInfo(current.name())) {
            return false;
        }
        if (!exists) {
            return fail("[ PF_Change_Frm_CompInp ] において引数が不正です。", "CHGFRM:01");
        }
        return bringUp(pageAt(target), current);
    });
}

bool PF_ShowTargetForm(PageForm& target, PageForm& current) {
    services().forms->load(target);
    services().forms->show(target);
    services().forms->unload(current, UnloadMode::Code);
    return true;
}

}  // namespace orv
