#include "logging/setting_trap.h"

#include "logging/trap.h"
#include "logging/write_log.h"

namespace orv {

std::string setting(const std::function<std::optional<std::string>()>& body, const std::string& onFailure) {
    std::optional<std::string> value;
    const auto failure = caught([&] { value = body(); });
    if (!failure && value) {
        return *value;
    }
    logError(failure ? failure->number() : 0, failure ? failure->description() : std::string());
    return onFailure;
}

}  // namespace orv
