#pragma once

#include <string>

#include "platform/forms/form.h"
#include "platform/machine/window_system.h"
#include "platform/scope.h"
#include "platform/services.h"

namespace orv {

/// Shows on the active page, while in scope, which work the program is doing.
class Working : NonCopyable {
public:
    explicit Working(const std::string& what) { services().windows->showWork(what); }
    ~Working() { services().windows->showWork({}); }
};

/// Disables a form during a piece of work, which ends with `enable` or `leaveDisabled`. If a failure leaves the scope
/// before, the form is enabled too, but no event is handled at that point.
class BusyForm : NonCopyable {
public:
    explicit BusyForm(Form& form) : form_(form) { form_.setEnabled(false); }
    ~BusyForm() {
        if (!ended_) {
            form_.enableLater();
        }
    }

    void enable() {
        ended_ = true;
        form_.setEnabled(true);
    }
    void leaveDisabled() { ended_ = true; }

private:
    Form& form_;
    bool ended_ = false;
};

}  // namespace orv
