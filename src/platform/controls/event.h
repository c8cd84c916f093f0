#pragma once

#include <functional>
#include <utility>

namespace orv {

/// An event with one handler. Raising an event without a handler does nothing.
template <class... Args>
class Event {
public:
    void operator=(std::function<void(Args...)> handler) { handler_ = std::move(handler); }  // NOLINT

    /// Calls a copy of the handler, because the handler can replace or destroy the event's owner.
    void raise(Args... args) const {
        if (const auto handler = handler_) {
            handler(args...);
        }
    }

    bool handled() const { return static_cast<bool>(handler_); }

private:
    std::function<void(Args...)> handler_;
};

}  // namespace orv
