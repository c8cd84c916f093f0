#pragma once

#include <functional>
#include <utility>

namespace orv {

/// An event with one handler. Raising one that nobody handles does nothing.
template <class... Args>
class Event {
public:
    void operator=(std::function<void(Args...)> handler) { handler_ = std::move(handler); }  // NOLINT

    /// The handler may replace or drop the event's owner: it is called on a copy.
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
