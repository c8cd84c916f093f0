#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/controls/combo_box.h"
#include "platform/controls/number_input.h"
#include "platform/controls/text_input.h"
#include "platform/forms/form.h"

namespace orv {
inline namespace bas_FromCommon {

/// Returns the display name of a field from the file of field names. `control` is the control's name; one outdated name
/// is replaced, also in the argument.
std::string P_ChgControl(std::string& control);

/// Sets the value of a control of any kind. Does nothing if the file of field names is missing; the page then keeps its
/// initial state. A rejected value adds the field's display name to `gErrItems`. False if the control takes no value,
/// or rejected it and could not be reset. Never throws.
bool PF_SetControlValue(Control& control, const std::string& value);

/// Runs `body`, which fills a page. Throws failure 53 if a control was not set because the file of field names is
/// missing. Otherwise an incomplete page would look filled.
bool withFieldNames(const std::function<bool()>& body);

// The three functions below ignore failures. Enabling without a colour keeps the colour. Disabling makes the control
// grey and clears it.

/// When a list is enabled, `value` is selected: blank or "0" is its first row.
void PF_EnableCombo(ComboBox& combo, bool enable, std::optional<Colour> colour = {}, const std::string& value = {});
void PF_EnableControl(TextInput& input, bool enable, std::optional<Colour> colour = {});
void PF_EnableNumber(NumberInput& input, bool enable, std::optional<Colour> colour = {});

/// Focuses a control that can have the focus. Does nothing for another control or null.
bool PF_SetFocusTo(Control* control);

/// True if the form is in the program's collection of loaded forms.
bool PF_IsFormLoaded(const Form& form);

}  // namespace bas_FromCommon

}  // namespace orv
