#pragma once

#include <memory>

#include "platform/forms/form.h"
#include "platform/machine/http_control.h"

namespace orv {

/// The invisible form that contains the upload's HTTP control. The save loads it before the upload and unloads it
/// afterwards. The control exists only while the form is loaded.
struct frm_Send : Form {
    frm_Send();

    std::unique_ptr<HttpControl> Http1;
};

/// Returns the one form and creates it at first use.
frm_Send& sendForm();

/// Deletes the form; the next call of `sendForm` creates a new one. The form must not be loaded.
void dropSendForm();

}  // namespace orv
