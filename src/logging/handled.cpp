#include "logging/handled.h"

#include <string>

#include "core/record/globals.h"
#include "logging/trap.h"
#include "logging/write_log.h"
#include "platform/forms/form_host.h"
#include "platform/machine/window_system.h"
#include "platform/services.h"
#include "platform/suite/message_service.h"

namespace orv {
namespace {

bool shown(std::string_view id, const std::string& code, const std::string& text) {
    bool result = false;
    const auto failure = caught([&] { result = services().message->ShowMessage(std::string(id), {code, text}); });
    return result && !failure;
}

void showPlainBox(const std::string& code, const std::string& text) {
    const auto failure =
        caught([&] { services().windows->showNotice({.title = code, .text = text, .kind = Notice::Kind::Critical}); });
    static_cast<void>(failure);  // if no window can be shown either, only the log record below remains
}

}  // namespace

void report(const Report& how) {
    const std::string code = gErrCode;
    const std::string text = gErrMsg;
    if (how.logFirst) {
        logError(code, text);
        services().forms->setPointer(kPointerDefault);
    }
    if (!shown(how.id, code, text)) {
        showPlainBox(code, text);
    }
    if (!how.logFirst) {
        logError(code, text);
    }
    if (!how.keepPair) {
        clearPair();
    }
}

void handled(std::string_view label, const std::function<bool()>& body, const Report& how) {
    if (!trapped(label, body)) {
        report(how);
    }
}

}  // namespace orv
