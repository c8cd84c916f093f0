#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/sibling_socket.h"
#include "platform/machine/running_programs.h"

namespace orv {

/// Holds each name as the address of a local socket without a file, which the system frees when the process ends. A
/// connection to it means: come to the front.
class RunningSockets : public RunningPrograms {
public:
    /// `place`: only runs for the same place share names. `called`: another run wants this one in front.
    RunningSockets(SiblingSocket::Watch watch, std::string place, std::function<void()> called)
        : watch_(std::move(watch)), place_(std::move(place)), called_(std::move(called)) {}

    /// A name that another user's run holds counts as free: its window can't come to this user's front.
    bool claim(const std::string& name) override;
    void leave(const std::string& name) override { held_.erase(name); }

private:
    /// The watch goes first.
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
