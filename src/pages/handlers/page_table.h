#pragma once

#include <array>

#include "pages/forms/page_entry.h"

namespace orv {

/// All pages in the order of their buttons.
extern const std::array<PageEntry, kPageCount> kPages;

}  // namespace orv
