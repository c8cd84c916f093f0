#pragma once

#include <string>

namespace orv {

/// Sends the company's photos to the image server, in order. A failure is logged, the next photo is still sent, and the
/// last failure stays in the pair. Requires `frm_Send` to be loaded. With the transfer type "FTP" nothing is sent,
/// because other programs of the suite do that.
void PF_ImageDataTransfer();

/// Sends one file. A failure is logged and stays in the pair. Does nothing while the control is busy.
void RH_ImageDataTransfr(const std::string& file);

}  // namespace orv
