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

/// Gives a control of any kind a value, while the file of field names is in its place: without it the page stays as it
/// was designed. A refused value puts the field's display name into `gErrItems`. False: a control that takes no value,
/// or one that refused and is not reset. Never raises.
bool PF_SetControlValue(Control& control, const std::string& value);

/// Runs `body`, which fills a page, and raises failure 53 if a control was left as it was because the file of field
/// names is missing. A page that shows less than the record must not be taken for filled.
bool withFieldNames(const std::function<bool()>& body);

// The three below swallow their failures and tell nothing. Enabling without a colour leaves the colour; disabling greys
// the control and wipes it.

/// `value` is what a list that was disabled comes back on: blank or "0" its first row.
void PF_EnableCombo(ComboBox& combo, bool enable, std::optional<Colour> colour = {}, const std::string& value = {});
void PF_EnableControl(TextInput& input, bool enable, std::optional<Colour> colour = {});
void PF_EnableNumber(NumberInput& input, bool enable, std::optional<Colour> colour = {});

/// The focus goes to a control that can have it; nothing happens on another, or without one.
bool PF_SetFocusTo(Control* control);

/// Whether the form is in the program's collection of loaded forms.
bool PF_IsFormLoaded(const Form& form);

}  // namespace bas_FromCommon
}  // namespace orv
