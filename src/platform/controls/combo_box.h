#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"

namespace orv {

struct ComboDesign {
    std::string_view caption = {};
    std::optional<Colour> back = {};
    int tabRank = 0;
    /// Read by assistive technology if the list has no caption.
    std::string_view spokenName = {};
};

/// A list of entries without free typing. Index -1 means that nothing is selected. Selecting raises click, by the
/// operator and by code, unless the list is disabled.
class ComboBox : public Control {
public:
    ComboBox(ControlOwner& owner, std::string_view name, const ComboDesign& design, int index = -1);

    TypedControl self() override { return this; }
    ControlTexts texts() const override { return {design_.caption, {}, design_.spokenName}; }
    Value content() const override { return text(); }
    /// Also enables the list, because enabling it later would select the first entry.
    void reset() override;

    std::string_view caption() const { return design_.caption; }
    int listCount() const { return static_cast<int>(list_.size()); }
    /// Returns the entry, or "" for an index outside the list. The reference is valid until the list changes.
    const std::string& list(int index) const;
    /// Counts the changes of the entries, so that a view knows when to read them again.
    int listVersion() const { return listVersion_; }
    int listIndex() const { return listIndex_; }
    /// Returns the selected entry, or "".
    std::string text() const { return list(listIndex_); }

    /// Removes all entries and the selection. Raises nothing.
    void clear();
    void addItem(std::string text);
    /// Adds all entries in one step, which is faster for long lists.
    void addItems(std::vector<std::string> texts);
    /// Selects by index; -1 selects nothing. Throws failure 380 outside the list. Raises click if the selection
    /// changes.
    void setListIndex(int index);
    /// Selects the entry with that text and raises click. Throws failure 383 if the list does not contain it.
    void setText(const std::string& text);
    /// Called when the operator selects an entry. Raises click even if it was selected already.
    void pick(int index);

    bool focusable() const override { return usable(); }

    Event<> onClick;

private:
    void choose(int index);

    ComboDesign design_;
    std::vector<std::string> list_;
    int listIndex_ = -1;
    int listVersion_ = 0;
};

}  // namespace orv
