#pragma once

#include "pages/forms/page_form.h"

namespace orv {

/// Starts a page when it is loaded: position, background, title, lists, data. True if the page is ready. On false the
/// pair holds the failure.
[[nodiscard]] bool startPage(PageForm& form);

/// Shows the company in the titles of window and page, and whether it is a member of the listing service.
void showTitle(PageForm& form);

}  // namespace orv
