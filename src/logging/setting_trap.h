#pragma once

#include <functional>
#include <optional>
#include <string>

namespace orv {

/// The frame of a settings accessor: a run-time failure of `body` is logged, without touching the pair, and the result
/// is `onFailure`. A body that gives nothing has failed without a run-time failure: number 0 and an empty text are
/// logged.
std::string setting(const std::function<std::optional<std::string>()>& body, const std::string& onFailure = "");

/// Runs `body`, and raises failure 75 where a setting could not be read meanwhile: what was worked out with a default
/// in its place, such as that a photo has gone or that a field stays empty, is not to be kept.
bool withSettings(const std::function<bool()>& body);

}  // namespace orv
