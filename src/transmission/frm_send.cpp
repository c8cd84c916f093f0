#include "transmission/frm_send.h"

#include "platform/services.h"

namespace orv {
namespace {

std::unique_ptr<frm_Send> theSendForm;

}  // namespace

frm_Send::frm_Send() : Form("frm_Send", "", {.x = 1, .y = 1}) {
    onLoad = [this] { Http1 = services().http(); };
    onUnload = [this] { Http1.reset(); };
}

frm_Send& sendForm() {
    if (!theSendForm) {
        theSendForm = std::make_unique<frm_Send>();
    }
    return *theSendForm;
}

void dropSendForm() { theSendForm.reset(); }

}  // namespace orv
