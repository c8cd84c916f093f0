#include "platform/controls/number_input.h"

#include <cmath>

#include "platform/controls/input_rules.h"
#include "platform/controls/number_format.h"
#include "platform/number_text.h"
#include "platform/run_time_error.h"

namespace orv {

NumberInput::NumberInput(ControlOwner& owner, std::string_view name, const NumberDesign& design, int index)
    : Control(owner, name, index, ControlKind::NumberInput), design_(design) {
    Control::design(design.back, true, true);
}

std::string NumberInput::text() const { return value_.isNull() ? std::string() : toText(value_); }

std::string NumberInput::shown(bool hasFocus) const {
    return formatNumber(value_, hasFocus || design_.display.empty() ? design_.format : design_.display);
}

void NumberInput::setText(const std::string& text) {
    Value next;
    if (text.find_first_not_of(' ') != std::string::npos) {
        const std::optional<double> number = readNumber(text);
        if (!number) {
            throw RunTimeError(Failure::TypeMismatch);
        }
        if (*number < design_.least || *number > design_.most) {
            throw RunTimeError(Failure::InvalidPropertyValue);
        }
        const double scale = std::pow(10.0, design_.decimals);
        next = std::round(*number * scale) / scale;
    }
    const bool differs = !(next == value_);
    value_ = next;
    differs ? contentChanged() : changed();
    if (differs) {
        onChange.raise();
    }
}

bool NumberInput::typed(const std::string& text) {
    const std::string narrow = toHalfWidth(text);
    const std::optional<double> number = readNumber(narrow);
    const bool blank = narrow.find_first_not_of(' ') == std::string::npos;
    if (!blank && (!number || *number < design_.least || *number > design_.most)) {
        changed();
        return false;
    }
    setText(narrow);
    return true;
}

}  // namespace orv
