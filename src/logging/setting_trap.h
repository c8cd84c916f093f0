#pragma once

#include <functional>
#include <optional>
#include <string>

namespace orv {

/// Reads a setting through `body`. On a run-time failure logs it, leaves the pair unchanged and returns `onFailure`. An
/// empty result without a run-time failure is logged with number 0 and no text.
std::string setting(const std::function<std::optional<std::string>()>& body, const std::string& onFailure = "");

/// Runs `body` and throws failure 75 if it succeeds although a setting could not be read. Results based on a default,
/// such as a photo that seems to be missing, must not be kept. A failure of `body` itself is returned.
bool withSettings(const std::function<bool()>& body);

}  // namespace orv
