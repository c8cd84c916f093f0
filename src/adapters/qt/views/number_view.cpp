#include <QKeyEvent>
#include <algorithm>

#include "adapters/qt/views/qt_text.h"
#include "adapters/qt/views/views.h"

namespace orv {
namespace {

/// A line for a number; the up and down keys count.
class NumberLine : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    std::function<void(int)> count;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
            count(event->key() == Qt::Key_Up ? 1 : -1);
            return;
        }
        QLineEdit::keyPressEvent(event);
    }
};

class NumberView : public ControlView {
public:
    NumberView(NumberInput& control, NumberLine* line) : ControlView(control, line), number_(control), line_(*line) {
        line_.setAlignment(Qt::AlignRight);
        line_.setAttribute(Qt::WA_InputMethodEnabled, false);
        line_.count = [this](int step) { countBy(step); };
        connect(&line_, &QLineEdit::editingFinished, this, [this] { commit(); });
    }

    void commit() override {
        if (line_.text() == toQt(number_.text())) {
            return;
        }
        const EventScope scope;
        if (!number_.typed(line_.text().toStdString())) {
            refresh();
        }
    }

private:
    void show() override {
        paintWith(QPalette::Base, QPalette::Text);
        line_.setText(toQt(number_.text()));
    }

    void countBy(int step) {
        commit();
        const NumberDesign& design = number_.numberDesign();
        const double now = number_.value().isNull() ? design.least - (step > 0 ? 1 : 0) : line_.text().toDouble();
        const double next = std::clamp(now + step, design.least, design.most);
        line_.setText(QString::number(next));
        commit();
    }

    NumberInput& number_;
    NumberLine& line_;
};

}  // namespace

std::unique_ptr<ControlView> makeNumberView(NumberInput& control, QWidget* page) {
    return std::make_unique<NumberView>(control, new NumberLine(page));
}

}  // namespace orv
