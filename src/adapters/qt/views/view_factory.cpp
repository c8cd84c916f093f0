#include "adapters/qt/views/views.h"

namespace orv {

std::unique_ptr<ControlView> makeView(Control& control, QWidget* page, const PageScale& scale) {
    switch (control.kind()) {
        case ControlKind::TextInput:
            return makeTextView(static_cast<TextInput&>(control), page);
        case ControlKind::NumberInput:
            return makeNumberView(static_cast<NumberInput&>(control), page);
        case ControlKind::ComboBox:
            return makeComboView(static_cast<ComboBox&>(control), page);
        case ControlKind::CheckBox:
            return makeCheckView(static_cast<CheckBox&>(control), page);
        case ControlKind::Label:
            return makeLabelView(static_cast<Label&>(control), page, scale);
        case ControlKind::Button:
            return makeButtonView(static_cast<Button&>(control), page, scale);
        case ControlKind::Image:
            return makeImageView(static_cast<ImageControl&>(control), page, scale);
    }
    return nullptr;
}

}  // namespace orv
