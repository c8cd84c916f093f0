#pragma once

#include <string>

namespace orv {

/// Sends the company's photos to the image server, the first one first. Best effort: what goes wrong with a photo is
/// logged, the other one is still tried, and the last failure stays in the pair. Expects `frm_Send` to be loaded.
/// With the transfer type "FTP" nothing is sent: that way belongs to other programs of the suite.
void PF_ImageDataTransfer();

/// Sends one file; a failure is logged and stays in the pair. Nothing happens while the control is busy.
void RH_ImageDataTransfr(const std::string& file);

}  // namespace orv
