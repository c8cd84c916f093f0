#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/design.h"

namespace orv {

class PageBinding;
struct PageForm;
struct Refusal;

inline constexpr int kPageCount = 5;

/// Everything in which the pages differ. `kPages` (pages/handlers/page_table.h) has one entry per page.
struct PageEntry {
    /// Counts from 0 in the order of the buttons. The entry's index in the table.
    int number = -1;
    /// On the page's button and in the window's title.
    std::string_view name = {};
    /// Returns the one object of the page.
    PageForm& (*form)() = nullptr;
    /// Connects the events of the page's new object to their handlers.
    void (*wire)() = nullptr;
    /// Fills the lists from the store and stops at the first failure. On false the pair holds the failure.
    bool (*fillLists)() = nullptr;
    /// Draws the page's canvas. On false the pair holds the failure.
    bool (*draw)() = nullptr;
    const PageBinding* binding = nullptr;
    /// Shows the record on the page. On false the pair holds the failure.
    bool (*show)() = nullptr;
    /// Copies the page to the record. On false the pair holds the failure.
    bool (*read)() = nullptr;
    /// Checks the fields of the page. Null for a page without rules.
    bool (*check)(Refusal& out) = nullptr;
    /// Returns the places of the controls that only this page has.
    std::span<const Placement> (*layout)() = nullptr;
};

/// Sets the table of pages, whose functions are in higher layers than this file. Applies to pages created from now on.
/// Does not copy the table.
void usePages(std::span<const PageEntry, kPageCount> table);

/// Returns the whole table.
std::span<const PageEntry> pageEntries();

/// Returns the entry of the page with that number. Failure 9 outside the table.
const PageEntry& pageEntry(int number);

/// Returns the name of a page's form: "frm_CompInp0".
std::string pageFormName(int number);

}  // namespace orv
