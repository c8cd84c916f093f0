#include "pages/handlers/frame_handlers.h"
#include "pages/handlers/page_handlers.h"

namespace orv {

void wireCompInp4(frm_CompInp4& form) {
    wireFrame(form);
    form.onLoad = [&form] { Form_Load(form); };
}

}  // namespace orv
