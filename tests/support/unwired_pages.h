#pragma once

#include "pages/handlers/page_table.h"

namespace orv {

/// Uses the pages without their handlers, which need the whole system.
inline void useUnwiredPages() {
    static std::array<PageEntry, kPageCount> unwired = kPages;
    for (PageEntry& page : unwired) page.wire = [] {};
    usePages(unwired);
}

}  // namespace orv
