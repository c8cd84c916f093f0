#include "pages/forms/page_entry.h"

#include "platform/run_time_error.h"

namespace orv {
namespace {

std::span<const PageEntry> pages;

}  // namespace

void usePages(std::span<const PageEntry, kPageCount> table) { pages = table; }

std::span<const PageEntry> pageEntries() { return pages; }

const PageEntry& pageEntry(int number) {
    if (number < 0 || static_cast<std::size_t>(number) >= pages.size()) {
        throw RunTimeError(Failure::SubscriptOutOfRange);
    }
    return pages[static_cast<std::size_t>(number)];
}

std::string pageFormName(int number) { return "frm_CompInp" + std::to_string(number); }

}  // namespace orv
