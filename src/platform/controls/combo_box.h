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
    /// What assistive technology reads where the list has no caption of its own.
    std::string_view spokenName = {};
};

/// A list to choose from; nothing can be typed. Index -1: nothing is chosen. Choosing raises click, by hand and by
/// code, but on a disabled list.
class ComboBox : public Control {
public:
    ComboBox(ControlOwner& owner, std::string_view name, const ComboDesign& design, int index = -1);

    std::string_view caption() const { return design_.caption; }
    std::string_view spokenName() const { return design_.spokenName; }
    int listCount() const { return static_cast<int>(list_.size()); }
    /// Empty for a place outside the list. It is good until the list changes.
    const std::string& list(int index) const;
    /// Counts the changes of the entries, so that a view sees without looking whether it must read them again.
    int listVersion() const { return listVersion_; }
    int listIndex() const { return listIndex_; }
    /// The chosen entry, or empty.
    std::string text() const { return list(listIndex_); }

    /// Drops all entries and the choice; raises nothing.
    void clear();
    void addItem(std::string text);
    /// All of them in one step, for long lists.
    void addItems(std::vector<std::string> texts);
    /// Chooses by place, -1 for nothing; failure 380 outside the list. Raises click when the choice changes.
    void setListIndex(int index);
    /// Chooses the entry of that text and raises click; failure 383 when the list does not hold it.
    void setText(const std::string& text);
    /// The operator has chosen that entry, perhaps the one chosen already: raises click in any case.
    void picked(int index);

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
