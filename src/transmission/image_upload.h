#pragma once

#include <memory>
#include <string>

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

/// True if the file, whose name can be in quotes, exists and can be opened for reading. Never throws.
[[nodiscard]] bool PF_FileCanOpen(const std::string& file);

/// Returns `text` trimmed and without one pair of enclosing double quotes. Failure 5 for fewer than two characters.
std::string PF_StripQuotes(const std::string& text);

/// Returns the part after the last "\" or ":".
std::string PF_BaseName(const std::string& path);

/// Sends the company's photos to the image server, in order. A failure is logged, the next photo is still sent, and the
/// last failure stays in the pair. Requires `frm_Send` to be loaded. With the transfer type "FTP" nothing is sent,
/// because other programs of the suite do that.
void PF_ImageDataTransfer();

/// Sends one file. A failure is logged and stays in the pair. Does nothing while the control is busy.
void RH_ImageDataTransfr(const std::string& file);

}  // namespace orv
