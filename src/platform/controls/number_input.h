#pragma once

#include <string>
#include <string_view>

#include "platform/controls/control.h"
#include "platform/value.h"

namespace orv {

/// Formats a number or null. The format has up to four sections separated by ";": positive, negative, zero and null. If
/// the second or third section is empty or missing, the first is used; without the fourth, null gives "". In a section
/// "0" is a digit that is always shown, "#" a digit that is shown if the number has it. A point without a digit after
/// it is omitted. An empty format gives the plain number.
std::string formatNumber(const Value& number, std::string_view format);

struct NumberDesign {
    std::string_view caption = {};
    std::string_view unit = {};
    double least = 0;
    double most = 0;
    int decimals = 0;
    /// Formats for display (number_format.h). `format` is used while the field has the focus. Otherwise `display` is
    /// used, or `format` if that is empty.
    std::string_view format = {};
    std::string_view display = {};
    std::optional<Colour> back = {};
    /// Read by assistive technology if the field has no caption.
    std::string_view spokenName = {};
};

/// Contains a number within its range, or null for no entry.
class NumberInput : public Control {
public:
    NumberInput(ControlOwner& owner, std::string_view name, const NumberDesign& design, int index = -1);

    TypedControl self() override { return this; }
    ControlTexts texts() const override { return {design_.caption, design_.unit, design_.spokenName}; }
    Value content() const override { return value_; }
    void reset() override { setText(""); }

    const NumberDesign& numberDesign() const { return design_; }
    /// Returns a number or null.
    const Value& value() const { return value_; }
    /// Returns the plain number, or "" for null.
    std::string text() const;
    /// Returns the number in the field's format, as shown on the screen.
    std::string shown(bool hasFocus) const;
    /// A blank text is null. Throws failure 13 for a text that is not a number, 380 for a number out of range, and then
    /// keeps the value.
    void setText(const std::string& text);
    /// Called with the text that the operator left in the field; full-width digits are accepted. False if the text is
    /// rejected; the value is then unchanged.
    [[nodiscard]] bool typed(const std::string& text);

    bool focusable() const override { return usable(); }

    Event<> onChange;

private:
    NumberDesign design_;
    Value value_;
};

}  // namespace orv
