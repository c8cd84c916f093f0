#include "adapters/qt/views/control_view.h"

#include <QSignalBlocker>

#include "adapters/qt/views/qt_text.h"
#include "adapters/qt/views/views.h"

namespace orv {
namespace {

QString withoutColon(std::string_view caption) {
    QString text = toQt(caption);
    return text.endsWith(QChar(0xFF1A)) ? text.chopped(1) : text;
}

ControlWords words(std::string_view caption, std::string_view unit, std::string_view spoken) {
    return {toQt(caption), toQt(unit), spoken.empty() ? withoutColon(caption) : toQt(spoken)};
}

}  // namespace

ControlWords wordsOf(const Control& control) {
    switch (control.kind()) {
        case ControlKind::TextInput: {
            const TextDesign& design = static_cast<const TextInput&>(control).textDesign();
            return words(design.caption, design.unit, design.spokenName);
        }
        case ControlKind::NumberInput: {
            const NumberDesign& design = static_cast<const NumberInput&>(control).numberDesign();
            return words(design.caption, design.unit, design.spokenName);
        }
        case ControlKind::ComboBox: {
            const auto& combo = static_cast<const ComboBox&>(control);
            return words(combo.caption(), {}, combo.spokenName());
        }
        case ControlKind::CheckBox: {
            const CheckDesign& design = static_cast<const CheckBox&>(control).checkDesign();
            return {{}, {}, toQt(design.caption.empty() ? design.spokenName : design.caption)};
        }
        case ControlKind::Label:
            return {{}, {}, toQt(static_cast<const Label&>(control).labelDesign().spokenName)};
        case ControlKind::Button:
            return {{}, {}, toQt(static_cast<const Button&>(control).caption())};
        case ControlKind::Image:
            return {{}, {}, toQt(static_cast<const ImageControl&>(control).spokenName())};
    }
    return {};
}

ControlView::ControlView(Control& control, QWidget* widget) : control_(control), widget_(widget) {
    widget_->setObjectName(toQt(control.objectName()));
    widget_->setAccessibleName(wordsOf(control).spoken);
    control_.observe([this] { refresh(); });
}

ControlView::~ControlView() { release(); }

void ControlView::release() {
    if (!released_) {
        released_ = true;
        control_.observe({});
        disconnect(widget_, nullptr, this, nullptr);
    }
}

void ControlView::refresh() {
    const QSignalBlocker blocker(widget_);
    show();
    widget_->setEnabled(control_.enabled());
    widget_->setVisible(control_.visible());
}

void ControlView::paintWith(QPalette::ColorRole ground, std::initializer_list<QPalette::ColorRole> texts) {
    const auto back = control_.backColour();
    if (!back) {
        return;
    }
    QPalette palette = widget_->palette();
    palette.setColor(ground, toQt(*back));
    for (const QPalette::ColorRole text : texts) {
        palette.setColor(text, toQt(control_.foreColour()));
        palette.setColor(QPalette::Disabled, text, toQt(kDisabledText));
    }
    if (palette != widget_->palette()) {
        widget_->setPalette(palette);
    }
}

}  // namespace orv
