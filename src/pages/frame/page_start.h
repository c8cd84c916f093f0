#pragma once

#include "pages/controls/page_form.h"

namespace orv {

/// What each page does when it is loaded: its place, its background, its title, its lists, its data. True: the page is
/// ready. False: the pair tells why.
[[nodiscard]] bool startPage(PageForm& form);

/// The company in the window's and the page's title, and whether it is a member of the listing service.
void showTitle(PageForm& form);

}  // namespace orv
