#pragma once

#include "adapters/qt/views/control_view.h"
#include "platform/controls/captions.h"
#include "platform/controls/check_box.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/image_control.h"
#include "platform/controls/number_input.h"
#include "platform/controls/text_input.h"

namespace orv {

std::unique_ptr<ControlView> makeTextView(TextInput& control, QWidget* page);
std::unique_ptr<ControlView> makeNumberView(NumberInput& control, QWidget* page);
std::unique_ptr<ControlView> makeComboView(ComboBox& control, QWidget* page);
std::unique_ptr<ControlView> makeCheckView(CheckBox& control, QWidget* page);
std::unique_ptr<ControlView> makeLabelView(Label& control, QWidget* page, const PageScale& scale);
std::unique_ptr<ControlView> makeButtonView(Button& control, QWidget* page, const PageScale& scale);
std::unique_ptr<ControlView> makeImageView(ImageControl& control, QWidget* page, const PageScale& scale);

}  // namespace orv
