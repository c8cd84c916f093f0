#pragma once

#include <functional>
#include <string_view>

#include "logging/trap.h"

namespace orv {

/// How an event handler reports a failure. The default shows "COSERR01", logs, and clears the pair.
struct Report {
    std::string_view id = "COSERR01";
    /// Logs before showing the message, which then appears with the normal pointer.
    bool logFirst = false;
    bool keepPair = false;
};

/// Shows, logs and clears the pair, so that each failure is reported once. If the message service fails too, a plain
/// box shows the text with the code as its title.
void report(const Report& how = {});

/// Runs the body of an event handler. Reports a failure that `body` throws (under `label`) or leaves in the pair.
void handled(std::string_view label, const std::function<bool()>& body, const Report& how = {});

/// The same for a body without a result.
void handled(std::string_view label, const BodyWithoutResult auto& body, const Report& how = {}) {
    handled(
        label, [&] { return succeeds(body); }, how);
}

}  // namespace orv
