#include "pages/handlers/help_key.h"

#include "logging/error_pair.h"
#include "logging/handled.h"
#include "platform/controls/captions.h"
#include "platform/services.h"
#include "platform/suite/help_service.h"

namespace orv {
namespace {

constexpr const char* kHelpGroup = "SSX";

/// On a page without fields the page's own button has the focus.
bool isMarkedButton(const Control& control) {
    return control.kind() == ControlKind::Button && static_cast<const Button&>(control).marked();
}

/// Returns the name of the control with the focus, or of the form if the page has no field.
const std::string& subjectOf(const Form& form) {
    const Control* active = form.activeControl();
    return active == nullptr || isMarkedButton(*active) ? form.name() : active->name();
}

}  // namespace

void helpOnF1(const Form& form, int key, std::string_view label) {
    if (key != kKeyF1) {
        return;
    }
    handled(label, [&form] {
        HelpService& help = *services().help;
        return help.ShowHelp(subjectOf(form), kHelpGroup) || failFrom(help.ErrorInfo());
    });
}

}  // namespace orv
