#include "platform/controls/text_input.h"

#include "platform/controls/input_rules.h"

namespace orv {

TextInput::TextInput(ControlOwner& owner, std::string_view name, const TextDesign& design, int index)
    : Control(owner, name, index, ControlKind::TextInput), design_(design) {
    Control::design(design.back, design.enabled, design.visible);
    setTabRank(design.tabRank);
}

void TextInput::setText(std::string text) {
    if (text == text_) {
        return;
    }
    text_ = std::move(text);
    contentChanged();
    onChange.raise();
}

std::string TextInput::typed(const std::string& before, const std::string& inserted, const std::string& after) {
    const std::string admitted = admit(design_, before + after, inserted);
    setText(before + admitted + after);
    return admitted;
}

}  // namespace orv
