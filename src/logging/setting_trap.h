#pragma once

#include <functional>
#include <optional>
#include <string>

namespace orv {

/// The frame of a settings accessor: a run-time failure of `body` is logged, without touching the pair, and the result
/// is `onFailure`. A body that gives nothing has failed without a run-time failure: number 0 and an empty text are
/// logged.
std::string setting(const std::function<std::optional<std::string>()>& body, const std::string& onFailure = "");

/// Runs `body`, and raises failure 75 if it succeeded although a setting could not be read: a result based on a
/// default, such as a photo that seems to be missing, must not be kept. A failure of `body` itself is passed on.
bool withSettings(const std::function<bool()>& body);

}  // namespace orv
