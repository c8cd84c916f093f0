#pragma once

#include <string>
#include <string_view>

#include "platform/controls/control.h"

namespace orv {

struct CheckDesign {
    std::string_view caption = {};
    std::optional<Colour> back = {};
    Colour fore = {};
    int value = 0;
    int tabRank = 0;
    /// Read by assistive technology if the box has no caption.
    std::string_view spokenName = {};
};

/// A box with value 0 (off), 1 (on) or 2 (grey). A change of the value raises click, by the operator and by code.
class CheckBox : public Control {
public:
    CheckBox(ControlOwner& owner, std::string_view name, const CheckDesign& design, int index = -1);

    TypedControl self() override { return this; }
    /// The box draws its caption itself.
    ControlTexts texts() const override {
        return {.spokenName = design_.caption.empty() ? design_.spokenName : design_.caption};
    }
    void reset() override { setValue(design_.value); }

    const CheckDesign& checkDesign() const { return design_; }
    int value() const { return value_; }
    /// Throws failure 380 for a value outside 0 to 2.
    void setValue(int value);
    /// Throws failure 13 for a text that is not a number, 380 for a value outside 0 to 2.
    void setText(const std::string& text);

    bool focusable() const override { return usable(); }

    Event<> onClick;

private:
    CheckDesign design_;
    int value_;
};

}  // namespace orv
