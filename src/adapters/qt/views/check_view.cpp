#include <QCheckBox>

#include "adapters/qt/views/qt_text.h"
#include "adapters/qt/views/views.h"

namespace orv {
namespace {

class CheckView : public ControlView {
public:
    CheckView(CheckBox& control, QCheckBox* box) : ControlView(control, box), check_(control), box_(*box) {
        box_.setText(toQt(control.checkDesign().caption));
        box_.setAutoFillBackground(true);
        box_.setBackgroundRole(QPalette::Window);
        connect(&box_, &QCheckBox::clicked, this, [this](bool on) {
            check_.setValue(on ? 1 : 0);
            refresh();
        });
    }

private:
    void show() override {
        paintWith(QPalette::Window, QPalette::WindowText);
        box_.setCheckState(check_.value() == 2   ? Qt::PartiallyChecked
                           : check_.value() == 1 ? Qt::Checked
                                                 : Qt::Unchecked);
    }

    CheckBox& check_;
    QCheckBox& box_;
};

}  // namespace

std::unique_ptr<ControlView> makeCheckView(CheckBox& control, QWidget* page) {
    return std::make_unique<CheckView>(control, new QCheckBox(page));
}

}  // namespace orv
