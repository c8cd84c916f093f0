#include "platform/controls/combo_box.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/run_time_error.h"

namespace orv {

ComboBox::ComboBox(ControlOwner& owner, std::string_view name, const ComboDesign& design, int index)
    : Control(owner, name, index, ControlKind::ComboBox), design_(design) {
    Control::design(design.back, true, true);
    setTabRank(design.tabRank);
}

void ComboBox::reset() {
    setEnabled(true);
    setListIndex(-1);
}

const std::string& ComboBox::list(int index) const {
    static const std::string none;
    return index >= 0 && index < listCount() ? list_[static_cast<std::size_t>(index)] : none;
}

void ComboBox::clear() {
    list_.clear();
    ++listVersion_;
    listIndex_ = -1;
    notifyObserver();
}

void ComboBox::addItem(std::string text) {
    list_.push_back(std::move(text));
    ++listVersion_;
    notifyObserver();
}

void ComboBox::addItems(std::vector<std::string> texts) {
    if (list_.empty()) {
        list_ = std::move(texts);
    } else {
        list_.insert(list_.end(), std::make_move_iterator(texts.begin()), std::make_move_iterator(texts.end()));
    }
    ++listVersion_;
    notifyObserver();
}

void ComboBox::setListIndex(int index) {
    if (index < -1 || index >= listCount()) {
        throw RunTimeError(Failure::InvalidPropertyValue);
    }
    if (index != listIndex_) {
        choose(index);
    }
}

void ComboBox::pick(int index) {
    if (index >= 0 && index < listCount()) {
        choose(index);
    }
}

void ComboBox::setText(const std::string& text) {
    if (listIndex_ >= 0 && this->text() == text) {
        choose(listIndex_);
        return;
    }
    const auto found = std::find(list_.begin(), list_.end(), text);
    if (found == list_.end()) {
        throw RunTimeError(Failure::TextNotInList);
    }
    choose(static_cast<int>(found - list_.begin()));
}

void ComboBox::choose(int index) {
    const bool differs = index != std::exchange(listIndex_, index);
    differs ? contentChanged() : notifyObserver();
    if (enabled()) {
        onClick.raise();
    }
}

}  // namespace orv
