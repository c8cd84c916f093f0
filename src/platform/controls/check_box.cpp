#include "platform/controls/check_box.h"

#include <cmath>

#include "platform/run_time_error.h"
#include "platform/value.h"

namespace orv {

CheckBox::CheckBox(ControlOwner& owner, std::string_view name, const CheckDesign& design, int index)
    : Control(owner, name, index, ControlKind::CheckBox), design_(design), value_(design.value) {
    Control::design(design.back, true, true);
    setForeColour(design.fore);
    setTabRank(design.tabRank);
}

void CheckBox::setValue(int value) {
    if (value < 0 || value > 2) {
        throw RunTimeError(Failure::InvalidPropertyValue);
    }
    if (value == value_) {
        return;
    }
    value_ = value;
    contentChanged();
    onClick.raise();
}

void CheckBox::setText(const std::string& text) {
    const std::optional<double> number = readNumber(text);
    if (!number) {
        throw RunTimeError(Failure::TypeMismatch);
    }
    const double rounded = std::nearbyint(*number);
    setValue(rounded >= 0 && rounded <= 2 ? static_cast<int>(rounded) : -1);
}

}  // namespace orv
