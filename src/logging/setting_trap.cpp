#include "logging/setting_trap.h"

#include <utility>

#include "core/record/globals.h"
#include "logging/trap.h"
#include "logging/write_log.h"
#include "platform/run_time_error.h"

namespace orv {

SettingsWatch::SettingsWatch() : outer_(std::exchange(theContext.settingsWatch, this)) {}

SettingsWatch::~SettingsWatch() {
    theContext.settingsWatch = outer_;
    if (failed_) {
        noteFailure();
    }
}

void SettingsWatch::noteFailure() {
    if (theContext.settingsWatch != nullptr) {
        theContext.settingsWatch->failed_ = true;
    }
}

std::string setting(const std::function<std::optional<std::string>()>& body, const std::string& onFailure) {
    std::optional<std::string> value;
    const auto failure = caught([&] { value = body(); });
    if (!failure && value) {
        return *value;
    }
    SettingsWatch::noteFailure();
    logError(failure ? failure->number() : 0, failure ? failure->description() : std::string());
    return onFailure;
}

bool withSettings(const std::function<bool()>& body) {
    const SettingsWatch watch;
    const bool result = body();
    if (result && watch.failed()) {
        throw RunTimeError(Failure::PathFileAccess, "設定ファイルを読めませんでした。もう一度実行してください。");
    }
    return result;
}

}  // namespace orv
