#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "platform/run_time_error.h"

namespace orv {

/// Runs `body` and returns the failure that it throws, converted to a run-time failure. No other code of the system
/// catches.
[[nodiscard]] std::optional<RunTimeError> caught(const std::function<void()>& body);

/// Runs the body of a module routine. A run-time failure fills the pair with `label`, description and number, and the
/// result is false. A body that fills the pair itself returns false, and the pair is kept.
[[nodiscard]] bool trapped(std::string_view label, const std::function<bool()>& body);

/// The same for a routine whose result is not a boolean. Returns `onFailure` if the body fails.
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
