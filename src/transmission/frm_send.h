#pragma once

#include <memory>

#include "platform/forms/form.h"
#include "platform/machine/http_control.h"

namespace orv {

/// The form without visible use that carries the upload's HTTP control. The save loads it before the upload and unloads
/// it afterwards; the control lives only in between.
struct frm_Send : Form {
    frm_Send();

    std::unique_ptr<HttpControl> Http1;
};

/// The one form, made when first asked for.
frm_Send& sendForm();

/// Forgets the form: the next call makes a fresh one. It must not be loaded.
void dropSendForm();

}  // namespace orv
