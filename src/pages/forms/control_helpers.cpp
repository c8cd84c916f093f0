#include "pages/forms/control_helpers.h"

#include "config/settings.h"
#include "core/record/globals.h"
#include "logging/trap.h"
#include "platform/ascii.h"
#include "platform/controls/captions.h"
#include "platform/controls/check_box.h"
#include "platform/controls/image_control.h"
#include "platform/design.h"
#include "platform/forms/form_host.h"
#include "platform/machine/file_system.h"
#include "platform/run_time_error.h"
#include "platform/services.h"

namespace orv {
inline namespace bas_FromCommon {
namespace {

constexpr const char* kNoName = "[P_ChgControl]にて判断できない項目";

/// False also if the file cannot be checked.
bool fieldNamesInPlace() {
    bool inPlace = false;
    static_cast<void>(caught([&] {
        const std::string file = com().HlpFile();
        inPlace = !trimmed(file).empty() && services().fileSystem->exists(file);
    }));
    return inPlace;
}

// Assign `value`, which is `raw` without the blanks at its end, to a control.

void assign(ComboBox& combo, const std::string& raw, const std::string& value) {
    if (raw.empty()) {
        combo.setListIndex(-1);
        return;
    }
    for (int i = 0; i <= combo.listCount(); ++i) {
        if (combo.list(i) == value) {
            combo.setText(value);
        }
    }
}

void assign(CheckBox& box, const std::string& raw, const std::string& value) {
    if (!raw.empty()) {
        box.setText(value);
    }
}

void assign(TextInput& input, const std::string& /*raw*/, const std::string& value) { input.setText(value); }

void assign(NumberInput& input, const std::string& /*raw*/, const std::string& value) { input.setText(value); }

void assign(Label& label, const std::string& /*raw*/, const std::string& value) { label.setCaption(value); }

/// The separator is put before the old list.
void noteRefusal(const Control& control) {
    std::string name = control.name();
    const std::string shown = P_ChgControl(name);
    gErrItems = gErrItems.empty() ? shown : "、" + gErrItems + shown;
}

void swallow(const std::function<void()>& body) {
    const auto failure = caught(body);
    static_cast<void>(failure);  // these helpers do not report failures
}

// Clear a control that has rejected a value. False if it has no state without a value.

bool resetRefused(Control& /*control*/) { return false; }

bool resetRefused(ComboBox& combo) {
    swallow([&] { combo.setListIndex(-1); });
    return true;
}

template <class C>
bool setValue(C& control, const std::string& raw) {
    if (!caught([&] { assign(control, raw, std::string(trimmedRight(raw))); })) {
        return true;
    }
    noteRefusal(control);
    return resetRefused(control);
}

// These take no value.

bool setValue(Button& /*control*/, const std::string& /*raw*/) { return false; }

bool setValue(ImageControl& /*control*/, const std::string& /*raw*/) { return false; }

/// `Field` is a text or a number input.
template <class Field>
void enableField(Field& input, bool enable, std::optional<Colour> colour) {
    swallow([&] {
        input.setEnabled(enable);
        if (!enable) {
            input.setBackColour(kDisabledField);
            input.setText("");
        } else if (colour) {
            input.setBackColour(*colour);
        }
    });
}

}  // namespace

std::string P_ChgControl(std::string& control) {
    if (equalWithoutCase(control, "cbo_Property_Type_Code")) {
        control = "txt_Property_Type_Code";
    }
    std::string entry;
    if (!PF_GetProFile(com().HlpFile(), "SSX", control, entry)) {
        return kNoName;
    }
    const std::size_t first = entry.find(',');
    if (first == std::string::npos) {
        return kNoName;
    }
    return entry.substr(first + 1, entry.find(',', first + 1) - first - 1);
}

bool PF_SetControlValue(Control& control, const std::string& value) {
    if (!fieldNamesInPlace()) {
        ++theContext.valuesNotShown;
        return true;
    }
    return std::visit([&](auto* own) { return setValue(*own, value); }, control.self());
}

bool withFieldNames(const std::function<bool()>& body) {
    const unsigned before = theContext.valuesNotShown;
    if (!body()) {
        return false;
    }
    if (theContext.valuesNotShown != before) {
        throw RunTimeError(Failure::FileNotFound, "項目名ファイル「" + com().HlpFile() +
                                                      "」が見つからないか読めないため、会社情報を表示できません。"
                                                      "ファイルを元に戻してから、画面を開き直してください。");
    }
    return true;
}

void PF_EnableCombo(ComboBox& combo, bool enable, std::optional<Colour> colour, const std::string& value) {
    swallow([&] {
        if (!enable) {
            combo.setBackColour(kDisabledField);
            combo.setEnabled(false);
            combo.setListIndex(-1);
            return;
        }
        if (colour) {
            combo.setBackColour(*colour);
        }
        if (combo.enabled()) {
            return;
        }
        combo.setEnabled(true);
        if (value.empty() || value == "0") {
            combo.setListIndex(0);
        } else {
            combo.setText(value);
        }
    });
}

void PF_EnableControl(TextInput& input, bool enable, std::optional<Colour> colour) {
    enableField(input, enable, colour);
}

void PF_EnableNumber(NumberInput& input, bool enable, std::optional<Colour> colour) {
    enableField(input, enable, colour);
}

bool PF_SetFocusTo(Control* control) {
    if (control != nullptr && control->usable()) {
        control->setFocus();
    }
    return true;
}

bool PF_IsFormLoaded(const Form& form) { return services().forms->isLoaded(form); }

}  // namespace bas_FromCommon

}  // namespace orv
