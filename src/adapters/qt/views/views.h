#pragma once

#include <QLineEdit>

#include "adapters/qt/views/control_view.h"
#include "platform/controls/captions.h"
#include "platform/controls/check_box.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/image_control.h"
#include "platform/controls/number_input.h"
#include "platform/controls/text_input.h"

namespace orv {

/// A line that tells when an input method has finished what it was composing.
class ComposedLine : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

    bool composing() const { return !preedit_.isEmpty(); }
    /// Takes what is being composed in as it stands.
    void finishComposition();
    void onComposed(std::function<void()> handler) { composed_ = std::move(handler); }

protected:
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    QString preedit_;
    std::function<void()> composed_;
};

std::unique_ptr<ControlView> makeTextView(TextInput& control, QWidget* page);
std::unique_ptr<ControlView> makeNumberView(NumberInput& control, QWidget* page);
std::unique_ptr<ControlView> makeComboView(ComboBox& control, QWidget* page);
std::unique_ptr<ControlView> makeCheckView(CheckBox& control, QWidget* page);
std::unique_ptr<ControlView> makeLabelView(Label& control, QWidget* page, const PageScale& scale);
std::unique_ptr<ControlView> makeButtonView(Button& control, QWidget* page, const PageScale& scale);
std::unique_ptr<ControlView> makeImageView(ImageControl& control, QWidget* page, const PageScale& scale);

}  // namespace orv
