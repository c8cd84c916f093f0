#include "logging/messages.h"

#include "logging/trap.h"
#include "platform/services.h"
#include "platform/suite/message_service.h"

namespace orv {
namespace {

constexpr std::int32_t kPresentStateStays = 1;

}  // namespace

void showMessage(const std::string& id, const Values& args) { services().message->ShowMessage(id, args); }

bool confirm(const std::string& id, const Values& args) {
    services().message->ShowMessage(id, args);
    return services().message->LastAnswer() != kPresentStateStays;
}

bool showOrFail(const std::string& id, const Values& args) {
    return services().message->ShowMessage(id, args) || failFrom(services().message->ErrorInfo());
}

}  // namespace orv
