#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/scope.h"

namespace orv {

/// Reads a setting through `body`. On a run-time failure logs it, leaves the pair unchanged and returns `onFailure`. An
/// empty result without a run-time failure is logged with number 0 and no text.
std::string setting(const std::function<std::optional<std::string>()>& body, const std::string& onFailure = "");

/// Notices, while in scope, whether a setting could not be read. One around it notices it too.
class [[nodiscard]] SettingsWatch : NonCopyable {
public:
    SettingsWatch();
    ~SettingsWatch();
    bool failed() const { return failed_; }
    /// To be called where a setting could not be read.
    static void noteFailure();

private:
    SettingsWatch* outer_;
    bool failed_ = false;
};

/// Runs `body` and throws failure 75 if it succeeds although a setting could not be read. Results based on a default,
/// such as a photo that seems to be missing, must not be kept. A failure of `body` itself is returned.
bool withSettings(const std::function<bool()>& body);

}  // namespace orv
