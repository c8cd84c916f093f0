#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/controls/control.h"

namespace orv {

/// The maximum length of a text input. It limits the operator's input, never a text set by code.
struct Limit {
    enum class Unit { None, Characters, CodePageBytes };
    Unit unit = Unit::None;
    std::size_t most = 0;
};

constexpr Limit characters(std::size_t most) { return {Limit::Unit::Characters, most}; }
constexpr Limit bytes(std::size_t most) { return {Limit::Unit::CodePageBytes, most}; }

/// The state of the input method when the field receives the focus.
enum class Ime { Off, Disabled, On, Hiragana, FullKatakana };

/// The initial state. `mask` lists the accepted classes of characters, `refuse` the rejected ones; if both are empty,
/// everything is accepted (see input_rules.h). `caption` is drawn before the field, `unit` after it.
struct TextDesign {
    std::string_view caption = {};
    std::string_view unit = {};
    std::string_view mask = {};
    std::string_view refuse = {};
    Limit limit = {};
    Ime ime = Ime::Off;
    std::optional<Colour> back = {};
    bool enabled = true;
    bool visible = true;
    bool password = false;
    int tabRank = 0;
    /// Read by assistive technology if the field has no caption.
    std::string_view spokenName = {};
};

class TextInput : public Control {
public:
    TextInput(ControlOwner& owner, std::string_view name, const TextDesign& design, int index = -1);

    TypedControl self() override { return this; }
    ControlTexts texts() const override { return {design_.caption, design_.unit, design_.spokenName}; }
    Value content() const override { return text_; }
    void reset() override { setText(""); }

    const TextDesign& textDesign() const { return design_; }
    const std::string& text() const { return text_; }
    /// Raises change if the text differs from the old one.
    void setText(std::string text);
    /// Called when the operator enters `inserted` between `before` and `after`. Inserts the accepted part and returns
    /// it.
    std::string typed(const std::string& before, const std::string& inserted, const std::string& after);

    bool focusable() const override { return usable(); }

    Event<> onChange;

private:
    TextDesign design_;
    std::string text_;
};

}  // namespace orv
