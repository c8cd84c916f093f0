#include "adapters/qt/views/advice_bubble.h"
#include "adapters/qt/views/entry_field.h"
#include "adapters/qt/views/qt_text.h"
#include "adapters/qt/views/views.h"
#include "platform/controls/input_advice.h"
#include "platform/controls/input_rules.h"

namespace orv {
namespace {

class TextView : public ControlView {
public:
    TextView(TextInput& control, EntryField* field)
        : ControlView(control, field),
          text_(control),
          field_(*field),
          advice_(*new AdviceBubble(*field, toQt(limitAdvice(control.textDesign())),
                                    [this](const QString& why) { setFault(why); })) {
        const TextDesign& design = control.textDesign();
        if (design.password) {
            field_.setEchoMode(QLineEdit::Password);
        }
        field_.allowInputMethod(design.ime != Ime::Disabled && !design.password);
        field_.admitBy([this](const QString& kept, const QString& offered) {
            return released() ? QString() : taken(kept, offered);
        });
        field_.whenSettled([this] { apply(); });
    }

    void commit() override { field_.finishComposition(); }

private:
    void show() override {
        paintWith(QPalette::Base, {QPalette::Text});
        const QString text = toQt(text_.text());
        if (shown_ == text) {
            return;
        }
        shown_ = text;
        field_.show(text);
        if (!field_.hasFocus()) {
            field_.setCursorPosition(0);
        }
    }

    QString taken(const QString& kept, const QString& offered) {
        const TextDesign& design = text_.textDesign();
        advice_.refuse(toQt(refusalAdvice(design, kept.toStdString(), offered.toStdString())));
        return toQt(admit(design, kept.toStdString(), offered.toStdString()));
    }

    void apply() {
        if (!released()) {
            shown_ = field_.text();
            text_.setText(shown_.toStdString());
        }
    }

    TextInput& text_;
    EntryField& field_;
    AdviceBubble& advice_;
    QString shown_;
};

}  // namespace

std::unique_ptr<ControlView> makeViewFor(TextInput& control, QWidget* page, const PageScale& /*scale*/) {
    return std::make_unique<TextView>(control, new EntryField(page));
}

}  // namespace orv
