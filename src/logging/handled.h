#pragma once

#include <functional>
#include <string_view>

namespace orv {

/// How an event handler reports. Most show "COSERR01", log, and clear the pair.
struct Report {
    std::string_view id = "COSERR01";
    /// The record comes before the message, which shows with the plain pointer.
    bool logFirst = false;
    bool keepPair = false;
};

/// Shows the pair, logs it and clears it, so that one failure is reported once. When the message service fails as well,
/// a plain box shows the text with the code as its title.
void report(const Report& how = {});

/// The frame of an event handler: a failure of `body`, trapped under `label` or told by the pair, is reported.
void handled(std::string_view label, const std::function<bool()>& body, const Report& how = {});

}  // namespace orv
