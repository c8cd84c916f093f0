#include <QCheckBox>
#include <QStyle>
#include <algorithm>

#include "adapters/qt/views/qt_text.h"
#include "adapters/qt/views/views.h"

namespace orv {
namespace {

/// Width of the letters in percent. Letters below the narrowest are hard to read.
constexpr int kPlain = 100;
constexpr int kNarrowest = 85;
constexpr Colour kTickGround{0xffffff};

class CheckView : public ControlView {
public:
    CheckView(CheckBox& control, QCheckBox* box) : ControlView(control, box), check_(control), box_(*box) {
        box_.setText(toQt(control.checkDesign().caption));
        box_.setAutoFillBackground(true);
        box_.setBackgroundRole(QPalette::Window);
        colourTick();
        connect(&box_, &QCheckBox::clicked, this, [this](bool on) {
            check_.setValue(on ? 1 : 0);
            refresh();
        });
    }

private:
    void show() override {
        paintWith(QPalette::Window, {QPalette::WindowText});
        fitWords();
        box_.setCheckState(check_.value() == 2   ? Qt::PartiallyChecked
                           : check_.value() == 1 ? Qt::Checked
                                                 : Qt::Unchecked);
    }

    /// Sets the colours of the tick. In those of a dark desktop an empty box would look like a filled one.
    void colourTick() {
        QPalette palette = box_.palette();
        palette.setColor(QPalette::Base, toQt(kTickGround));
        palette.setColor(QPalette::Text, toQt(kPageText));
        box_.setPalette(palette);
    }

    /// Narrows the letters of a caption that is a little too long for its place.
    void fitWords() {
        const QStyle& style = *box_.style();
        const int tick = style.pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &box_) +
                         style.pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, &box_);
        const int space = std::max(1, box_.width() - tick);
        QFont font = box_.parentWidget()->font();
        const int words = QFontMetrics(font).horizontalAdvance(box_.text());
        if (words > space) {
            font.setStretch(std::max(kNarrowest, kPlain * space / words));
            box_.setFont(font);
        }
    }

    CheckBox& check_;
    QCheckBox& box_;
};

}  // namespace

std::unique_ptr<ControlView> makeViewFor(CheckBox& control, QWidget* page, const PageScale& /*scale*/) {
    return std::make_unique<CheckView>(control, new QCheckBox(page));
}

}  // namespace orv
