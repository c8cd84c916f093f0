#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "platform/run_time_error.h"

namespace orv {

/// Runs `body`; what it raises comes back as the run-time failure that it is. The one place where the system catches.
[[nodiscard]] std::optional<RunTimeError> caught(const std::function<void()>& body);

/// The frame of a module routine. A run-time failure in `body` fills the pair with `label`, the description and the
/// number, and the result is false; a body that has filled the pair itself returns false and the pair stays.
[[nodiscard]] bool trapped(std::string_view label, const std::function<bool()>& body);

/// The same for a routine whose result is no boolean: `onFailure` when the body fails.
template <class Result>
[[nodiscard]] Result trappedOr(std::string_view label, Result onFailure, const std::function<Result()>& body) {
    Result result = onFailure;
    const bool fine = trapped(label, [&] {
        result = body();
        return true;
    });
    return fine ? result : onFailure;
}

}  // namespace orv
