#include "platform/controls/control.h"

#include <utility>

#include "platform/controls/control_handles.h"
#include "platform/run_time_error.h"

namespace orv {

Control::Control(ControlOwner& owner, std::string_view name, int index, ControlKind kind)
    : owner_(owner), name_(name), index_(index), kind_(kind) {
    owner_.adopt(*this);
}

Control::~Control() {
    if (handle_ != 0) {
        controlHandles().release(handle_);
    }
}

std::uint32_t Control::handle() const {
    handle_ = handle_ != 0 ? handle_ : controlHandles().allocate();
    return handle_;
}

std::string Control::objectName() const { return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")"; }

Value Control::content() const { throw RunTimeError(Failure::InvalidCall); }

void Control::setEnabled(bool enabled) {
    enabled_ = enabled;
    notifyObserver();
}

void Control::setVisible(bool visible) {
    visible_ = visible;
    notifyObserver();
}

void Control::setBackColour(Colour colour) {
    backColour_ = colour;
    notifyObserver();
}

void Control::setForeColour(Colour colour) {
    foreColour_ = colour;
    notifyObserver();
}

void Control::setFault(std::string fault) {
    if (fault != fault_) {
        fault_ = std::move(fault);
        notifyObserver();
    }
}

void Control::setFocus() {
    if (!usable()) {
        throw RunTimeError(Failure::InvalidCall);
    }
    owner_.giveFocus(*this);
}

void Control::notifyObserver() const {
    if (observer_) {
        observer_();
    }
}

void Control::contentChanged() const {
    owner_.contentChanged(*this);
    notifyObserver();
}

void Control::design(std::optional<Colour> back, bool enabled, bool visible) {
    backColour_ = back;
    enabled_ = enabled;
    visible_ = visible;
}

}  // namespace orv
