#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/sibling_socket.h"
#include "platform/machine/running_programs.h"

namespace orv {

/// Uses each name as the address of a local socket without a file, which the system releases when the process ends. A
/// connection to it asks the run to bring its window to the front.
class RunningSockets : public RunningPrograms {
public:
    /// Only runs with the same `place` share names. `called` runs when another run asks for this one's window.
    RunningSockets(SiblingSocket::Watch watch, std::string place, std::function<void()> called)
        : watch_(std::move(watch)), place_(std::move(place)), called_(std::move(called)) {}

    /// A name held by another user's run counts as free, because its window cannot be brought to this user's front.
    bool claim(const std::string& name) override;
    void leave(const std::string& name) override { held_.erase(name); }

private:
    /// Declared in this order, so that the watch is destroyed first.
    struct Held {
        Descriptor listener;
        std::shared_ptr<void> watch;
    };

    SiblingSocket::Watch watch_;
    std::string place_;
    std::function<void()> called_;
    std::map<std::string, Held> held_;
};

}  // namespace orv
