#include "logging/setting_trap.h"

#include "logging/trap.h"
#include "logging/write_log.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

unsigned unread = 0;

}  // namespace

std::string setting(const std::function<std::optional<std::string>()>& body, const std::string& onFailure) {
    std::optional<std::string> value;
    const auto failure = caught([&] { value = body(); });
    if (!failure && value) {
        return *value;
    }
    ++unread;
    logError(failure ? failure->number() : 0, failure ? failure->description() : std::string());
    return onFailure;
}

bool withSettings(const std::function<bool()>& body) {
    const unsigned before = unread;
    const bool result = body();
    if (result && unread != before) {
        throw RunTimeError(Failure::PathFileAccess, "設定ファイルを読めませんでした。もう一度実行してください。");
    }
    return result;
}

}  // namespace orv
