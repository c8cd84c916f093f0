#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/controls/control.h"

namespace orv {

/// How much a text input takes. Only what the operator enters is limited, never what the system sets.
struct Limit {
    enum class Unit { None, Characters, CodePageBytes };
    Unit unit = Unit::None;
    std::size_t most = 0;
};

constexpr Limit characters(std::size_t most) { return {Limit::Unit::Characters, most}; }
constexpr Limit bytes(std::size_t most) { return {Limit::Unit::CodePageBytes, most}; }

/// The input method when the field takes the focus.
enum class Ime { Off, Disabled, On, Hiragana, FullKatakana };

/// What stands at the start. `mask` lists classes of characters that are admitted, `refuse` those that are refused;
/// both empty: everything is admitted (input_rules.h has the classes). `caption` stands in front of the field,
/// `unit` behind it.
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
    /// What assistive technology reads where the field has no caption of its own.
    std::string_view spokenName = {};
};

class TextInput : public Control {
public:
    TextInput(ControlOwner& owner, std::string_view name, const TextDesign& design, int index = -1);

    const TextDesign& textDesign() const { return design_; }
    const std::string& text() const { return text_; }
    /// Raises change when the text differs from the one before.
    void setText(std::string text);
    /// The operator has entered `inserted` between `before` and `after`. What is admitted of it is taken in;
    /// returns that part.
    std::string typed(const std::string& before, const std::string& inserted, const std::string& after);

    bool focusable() const override { return usable(); }

    Event<> onChange;

private:
    TextDesign design_;
    std::string text_;
};

}  // namespace orv
