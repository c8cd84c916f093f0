#include <QKeyEvent>
#include <algorithm>

#include "adapters/qt/views/entry_field.h"
#include "adapters/qt/views/qt_text.h"
#include "adapters/qt/views/views.h"
#include "platform/controls/input_rules.h"

namespace orv {
namespace {

/// The signs of a number, full-width ones as half-width ones.
QString numberSigns(const QString& offered) {
    QString signs = toQt(toHalfWidth(offered.toStdString()));
    signs.removeIf([](QChar sign) { return !QStringView(u"0123456789.-").contains(sign); });
    return signs;
}

/// The up and down keys count.
class NumberField : public EntryField {
public:
    using EntryField::EntryField;
    std::function<void(int)> count;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
            count(event->key() == Qt::Key_Up ? 1 : -1);
        } else {
            EntryField::keyPressEvent(event);
        }
    }
};

/// What is typed becomes the control's value when the field is left.
class NumberView : public ControlView {
public:
    NumberView(NumberInput& control, NumberField* field)
        : ControlView(control, field), number_(control), field_(*field) {
        field_.setAlignment(Qt::AlignRight);
        field_.setAttribute(Qt::WA_InputMethodEnabled, false);
        field_.admitBy([](const QString&, const QString& offered) { return numberSigns(offered); });
        field_.count = [this](int step) { countBy(step); };
    }

    void commit() override { take(field_.text()); }

private:
    void show() override {
        paintWith(QPalette::Base, QPalette::Text);
        if (shown_ != toQt(number_.text())) {
            showValue();
        }
    }

    void showValue() {
        shown_ = toQt(number_.text());
        field_.setText(shown_);
    }

    /// Taken or refused, the field shows the value that stands then.
    void take(const QString& text) {
        if (text == shown_) {
            return;
        }
        [[maybe_unused]] const bool taken = number_.typed(text.toStdString());
        showValue();
    }

    void countBy(int step) {
        commit();
        const NumberDesign& design = number_.numberDesign();
        const double next = number_.value().isNull() ? design.least : shown_.toDouble() + step;
        take(QString::number(std::clamp(next, design.least, design.most)));
    }

    NumberInput& number_;
    NumberField& field_;
    QString shown_;
};

}  // namespace

std::unique_ptr<ControlView> makeNumberView(NumberInput& control, QWidget* page) {
    return std::make_unique<NumberView>(control, new NumberField(page));
}

}  // namespace orv
