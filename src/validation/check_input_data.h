#pragma once

#include "pages/forms/page_form.h"

namespace orv {

/// Checks the whole record, page by page. At the first rule that fails, shows that page, focuses the field and shows
/// the message. False if a rule failed, or on a failure that is in the pair.
[[nodiscard]] bool PF_CheckInputData(PageForm& currentForm);

}  // namespace orv
