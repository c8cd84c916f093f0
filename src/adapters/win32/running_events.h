#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "adapters/win32/win32_handle.h"
#include "platform/machine/running_programs.h"

namespace orv {

/// Calls `signalled` from the event loop whenever the handle is signalled, until the result is released.
using HandleWatch = std::function<std::shared_ptr<void>(HANDLE handle, std::function<void()> signalled)>;

/// Holds each name as a named event of the user's session, which the system frees when the process ends. To signal it
/// means: come to the front.
class RunningEvents : public RunningPrograms {
public:
    /// Only runs with the same `place` share names. `called`: another run wants this one in front.
    RunningEvents(HandleWatch watch, std::string place, std::function<void()> called)
        : watch_(std::move(watch)), place_(std::move(place)), called_(std::move(called)) {}

    bool claim(const std::string& name) override;
    void leave(const std::string& name) override { held_.erase(name); }

private:
    /// The watch is destroyed first.
    struct Held {
        Win32Handle event;
        std::shared_ptr<void> watch;
    };

    HandleWatch watch_;
    std::string place_;
    std::function<void()> called_;
    std::map<std::string, Held> held_;
};

}  // namespace orv
