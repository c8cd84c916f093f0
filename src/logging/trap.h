#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/run_time_error.h"
#include "platform/scope.h"
#include "platform/suite/failure_record.h"

namespace orv {

/// Fills the pair and returns false, so that a function body can end with it.
[[nodiscard]] bool fail(std::string text, std::string code);
[[nodiscard]] bool failFrom(const FailureRecord& record);

/// Fills the pair where the work goes on although something failed.
void setPair(FailureRecord record);
/// Clears the pair after its failure was reported.
void clearPair();

/// Keeps the pair over a clean-up: at the end of the scope it is again as it was at the start.
class [[nodiscard]] PairKeeper : NonCopyable {
public:
    PairKeeper();
    ~PairKeeper();

private:
    FailureRecord pair_;
};

/// Runs `body` and returns the failure that it throws, converted to a run-time failure. No other code of the system
/// catches.
[[nodiscard]] std::optional<RunTimeError> caught(const std::function<void()>& body);

/// Runs the body of a module routine. A run-time failure fills the pair with `label`, description and number, and the
/// result is false. A body that fills the pair itself returns false, and the pair is kept.
[[nodiscard]] bool trapped(std::string_view label, const std::function<bool()>& body);

/// Runs `body` and returns its result. A body without a result succeeds unless it throws.
template <class Body>
bool succeeds(const Body& body) {
    if constexpr (std::is_void_v<std::invoke_result_t<const Body&>>) {
        body();
        return true;
    } else {
        return body();
    }
}

/// A body that fails only by throwing.
template <class Body>
concept BodyWithoutResult = std::is_void_v<std::invoke_result_t<const Body&>>;

/// The same for a body without a result.
[[nodiscard]] bool trapped(std::string_view label, const BodyWithoutResult auto& body) {
    return trapped(label, [&] { return succeeds(body); });
}

/// The same for a routine whose result is not a boolean. Returns `onFailure` if the body fails.
template <class Result>
[[nodiscard]] Result trappedOr(std::string_view label, Result onFailure, const std::function<Result()>& body) {
    Result result = onFailure;
    const bool fine = trapped(label, [&] { result = body(); });
    return fine ? result : onFailure;
}

}  // namespace orv
