#include <QKeyEvent>
#include <algorithm>

#include "adapters/qt/views/advice_bubble.h"
#include "adapters/qt/views/entry_field.h"
#include "adapters/qt/views/qt_text.h"
#include "adapters/qt/views/views.h"
#include "platform/controls/input_advice.h"
#include "platform/controls/input_rules.h"

namespace orv {
namespace {

/// Returns the characters that can be part of a number, in half width.
QString numberSigns(const QString& offered) {
    QString signs = toQt(toHalfWidth(offered.toStdString()));
    signs.removeIf([](QChar sign) { return !QStringView(u"0123456789.-").contains(sign); });
    return signs;
}

/// The up and down keys change the number by one. `focus` is called when the field has received or lost the focus.
class NumberField : public EntryField {
public:
    using EntryField::EntryField;
    std::function<void(int)> count;
    std::function<void()> focus;

protected:
    void focusInEvent(QFocusEvent* event) override {
        focus();
        EntryField::focusInEvent(event);
    }
    void focusOutEvent(QFocusEvent* event) override {
        EntryField::focusOutEvent(event);
        focus();
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
            count(event->key() == Qt::Key_Up ? 1 : -1);
        } else {
            EntryField::keyPressEvent(event);
        }
    }
};

/// Passes the typed number to the control when the field loses the focus.
class NumberView : public ControlView {
public:
    NumberView(NumberInput& control, NumberField* field)
        : ControlView(control, field),
          number_(control),
          field_(*field),
          range_(toQt(rangeAdvice(control.numberDesign()))),
          advice_(*new AdviceBubble(*field, range_, [this](const QString& why) { setFault(why); })) {
        field_.setAlignment(Qt::AlignRight);
        field_.allowInputMethod(false);
        field_.admitBy([this](const QString&, const QString& offered) { return acceptSigns(offered); });
        field_.count = [this](int step) { countBy(step); };
        field_.focus = [this] { follow(); };
    }

    void commit() override {
        field_.finishComposition();
        if (field_.isModified()) {
            apply(field_.text());
        }
    }

private:
    void show() override {
        paintWith(QPalette::Base, {QPalette::Text});
        if (known_ != number_.value()) {
            showValue();
        }
    }

    void showValue() {
        known_ = number_.value();
        field_.show(toQt(number_.shown(field_.hasFocus())));
    }

    /// Adapts the format of the number to the focus. Keeps unfinished input, for example while a menu of the field is
    /// open.
    void follow() {
        const QString text = toQt(number_.shown(field_.hasFocus()));
        if (!released() && !field_.isModified() && field_.text() != text) {
            field_.show(text);
        }
    }

    /// Shows the control's value in the field afterwards, whether the text was taken or refused.
    void apply(const QString& text) {
        if (!number_.typed(text.toStdString())) {
            advice_.refuseLater(range_);
        }
        showValue();
    }

    QString acceptSigns(const QString& offered) {
        QString signs = numberSigns(offered);
        if (signs.size() != offered.size()) {
            advice_.refuse(range_);
        }
        return signs;
    }

    void countBy(int step) {
        commit();
        const NumberDesign& design = number_.numberDesign();
        const double next = number_.value().isNull() ? design.least : toQt(number_.text()).toDouble() + step;
        apply(QString::number(std::clamp(next, design.least, design.most)));
    }

    NumberInput& number_;
    NumberField& field_;
    Value known_;
    QString range_;
    AdviceBubble& advice_;
};

}  // namespace

std::unique_ptr<ControlView> makeViewFor(NumberInput& control, QWidget* page, const PageScale& /*scale*/) {
    return std::make_unique<NumberView>(control, new NumberField(page));
}

}  // namespace orv
