#include "platform/forms/form.h"

#include <algorithm>
#include <iterator>

namespace orv {

Form::Form(std::string_view name, std::string_view caption, Point size, Sizing sizing)
    : name_(name), caption_(caption), size_(size), sizing_(sizing) {}

void Form::setCaption(std::string caption) {
    caption_ = std::move(caption);
    notifyObserver();
}

void Form::resize(Point size) {
    size_ = size;
    onResize.raise();
    notifyObserver();
}

Control* Form::find(std::string_view control, int index) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control* candidate) {
        return candidate->name() == control && candidate->index() == index;
    });
    return found == controls_.end() ? nullptr : *found;
}

void Form::nameBlock(std::string_view caption, const Control& first, const Control& last) {
    const auto begin = std::find(controls_.begin(), controls_.end(), &first);
    const auto end = std::next(std::find(begin, controls_.end(), &last));
    std::for_each(begin, end, [&](Control* member) { member->setBlock(caption); });
}

std::vector<Control*> Form::tabOrder() const {
    std::vector<Control*> order = controls_;
    std::stable_sort(order.begin(), order.end(),
                     [](const Control* a, const Control* b) { return a->tabRank() < b->tabRank(); });
    return order;
}

void Form::setEnabled(bool enabled) {
    enabled_ = enabled;
    notifyObserver();
    if (enabled_ && awaited_ != nullptr) {
        Control& control = *awaited_;
        awaited_ = nullptr;
        if (control.usable()) {
            activate(control);
        }
    }
}

void Form::enableLater() {
    enabled_ = true;
    if (laterObserver_) {
        laterObserver_();
    }
}

void Form::focusArrived(Control& control) {
    if (&control != active_) {
        activate(control);
    }
}

void Form::focusLeft() {
    if (active_ != nullptr) {
        active_->onLostFocus.raise();
    }
}

bool Form::keyDown(int key) {
    onKeyDown.raise(key);
    if (enabled_ && active_ != nullptr) {
        active_->onKeyDown.raise(key);
    }
    return key == kKeyUsed;
}

void Form::adopt(Control& control) { controls_.push_back(&control); }

void Form::giveFocus(Control& control) {
    if (enabled_) {
        activate(control);
    } else {
        awaited_ = &control;
    }
}

void Form::focusNext() {
    const std::vector<Control*> order = tabOrder();
    const auto here = std::find(order.begin(), order.end(), active_);
    const auto start = here == order.end() ? order.begin() : here + 1;
    const auto canHaveFocus = [](const Control* control) { return control->focusable(); };
    auto next = std::find_if(start, order.end(), canHaveFocus);
    if (next == order.end()) {
        next = std::find_if(order.begin(), order.end(), canHaveFocus);
    }
    if (next != order.end()) {
        activate(**next);
    }
}

void Form::focusFirst() {
    const std::vector<Control*> order = tabOrder();
    const auto first = std::find_if(order.begin(), order.end(), [](const Control* control) {
        return control->tabRank() >= 0 && control->kind() != ControlKind::Button && control->focusable();
    });
    if (first != order.end()) {
        activate(**first);
    } else if (resting_ != nullptr) {
        activate(*resting_);
    } else {
        focusNext();
    }
}

void Form::activate(Control& control) {
    if (&control != active_) {
        leaveActive();
        active_ = &control;
    }
    if (focusObserver_) {
        focusObserver_(control);
    }
    control.onGotFocus.raise();
}

void Form::leaveActive() {
    if (active_ == nullptr) {
        return;
    }
    Control& left = *active_;
    left.onValidate.raise();
    left.onLostFocus.raise();
}

void Form::notifyObserver() const {
    if (observer_) {
        observer_();
    }
}

}  // namespace orv
