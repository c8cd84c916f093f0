#pragma once

#include "pages/controls/page_form.h"

namespace orv {

/// Checks the whole record, page by page. At the first rule that fails it changes to that page, gives the focus to the
/// field at fault and tells the operator. False: refused, or a failure that the pair tells.
[[nodiscard]] bool PF_CheckInputData(PageForm& currentForm);

}  // namespace orv
