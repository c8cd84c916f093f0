#pragma once

#include "platform/forms/form.h"

namespace orv {

/// A form that takes no input while work is done. The work ends with `enable` or `leaveDisabled`. If a failure leaves
/// the scope without either, the form is enabled too, but no event is handled there.
class DisabledForm {
public:
    explicit DisabledForm(Form& form) : form_(form) { form_.setEnabled(false); }
    DisabledForm(const DisabledForm&) = delete;
    DisabledForm& operator=(const DisabledForm&) = delete;
    ~DisabledForm() {
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
