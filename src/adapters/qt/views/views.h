#pragma once

#include "adapters/qt/views/control_view.h"
#include "platform/controls/captions.h"
#include "platform/controls/check_box.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/image_control.h"
#include "platform/controls/number_input.h"
#include "platform/controls/text_input.h"

namespace orv {

// Make the view of one class of control. Its widget is a child of `page`.

std::unique_ptr<ControlView> makeViewFor(TextInput& control, QWidget* page, const PageScale& scale);
std::unique_ptr<ControlView> makeViewFor(NumberInput& control, QWidget* page, const PageScale& scale);
std::unique_ptr<ControlView> makeViewFor(ComboBox& control, QWidget* page, const PageScale& scale);
std::unique_ptr<ControlView> makeViewFor(CheckBox& control, QWidget* page, const PageScale& scale);
std::unique_ptr<ControlView> makeViewFor(Label& control, QWidget* page, const PageScale& scale);
std::unique_ptr<ControlView> makeViewFor(Button& control, QWidget* page, const PageScale& scale);
std::unique_ptr<ControlView> makeViewFor(ImageControl& control, QWidget* page, const PageScale& scale);

}  // namespace orv
