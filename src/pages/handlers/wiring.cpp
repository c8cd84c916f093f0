#include "pages/handlers/page_handlers.h"

#include "pages/forms/page_set.h"
#include "pages/handlers/frame_handlers.h"

namespace orv {
namespace {

/// This read-only page has no handlers of its own.
void wireCompInp4(frm_CompInp4& form) {
    wireFrame(form);
    form.onLoad = [&form] { Form_Load(form); };
}

}  // namespace

void wirePages() {
    wirePagesWith({.compInp0 = wireCompInp0,
                   .compInp1 = wireCompInp1,
                   .compInp2 = wireCompInp2,
                   .compInp3 = wireCompInp3,
                   .compInp4 = wireCompInp4,
                   .changePassword = wireChangePassword});
}

}  // namespace orv
