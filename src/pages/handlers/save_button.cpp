#include "pages/handlers/save_button.h"

#include "core/flow/save_company.h"
#include "core/record/globals.h"
#include "logging/error_pair.h"
#include "logging/handled.h"
#include "logging/trap.h"
#include "platform/scope.h"

namespace orv {
namespace {

/// Does nothing if the save has moved to another page. If the company received its number, switches to it without
/// asking.
void showCompany(PageForm& form, const std::string& userId) {
    if (!userId.empty() && form.activeControl() != nullptr) {
        form.cbo_User_Id.setText(userId);
    }
}

}  // namespace

void btm_Save_Click(PageForm& form) {
    const FlagGuard saving(gSaving);
    handled("[ " + form.tag() + " btm_Save_Click ]", [&] {
        std::string userId;
        if (PF_SndCos(form, userId)) {
            showCompany(form, userId);
            return true;
        }
        // Reports the save's own failure, even if the switch to the new number changes the pair.
        const PairKeeper own;
        static_cast<void>(caught([&] { showCompany(form, userId); }));
        return false;
    });
}

}  // namespace orv
