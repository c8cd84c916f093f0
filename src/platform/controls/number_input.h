#pragma once

#include <string>
#include <string_view>

#include "platform/controls/control.h"
#include "platform/value.h"

namespace orv {

struct NumberDesign {
    std::string_view caption = {};
    std::string_view unit = {};
    double least = 0;
    double most = 0;
    int decimals = 0;
    /// How the number is shown (number_format.h): `format` while the field has the focus, else `display`, or `format`
    /// where that is empty.
    std::string_view format = {};
    std::string_view display = {};
    std::optional<Colour> back = {};
    /// What assistive technology reads where the field has no caption of its own.
    std::string_view spokenName = {};
};

/// Holds a number of its range, or null for nothing.
class NumberInput : public Control {
public:
    NumberInput(ControlOwner& owner, std::string_view name, const NumberDesign& design, int index = -1);

    const NumberDesign& numberDesign() const { return design_; }
    /// A number or null.
    const Value& value() const { return value_; }
    /// The plain number; empty for null.
    std::string text() const;
    /// The number as the screen shows it, in the field's format.
    std::string shown(bool hasFocus) const;
    /// A blank text is null. Failure 13 for another text that is no number, 380 for a number out of its range;
    /// the value then stays.
    void setText(const std::string& text);
    /// What the operator left in the field, full-width digits included. False: refused, the value stays.
    [[nodiscard]] bool typed(const std::string& text);

    bool focusable() const override { return usable(); }

    Event<> onChange;

private:
    NumberDesign design_;
    Value value_;
};

}  // namespace orv
