#pragma once

#include <utility>

namespace orv {

/// Base of objects that are neither copied nor moved.
class NonCopyable {
public:
    NonCopyable(const NonCopyable&) = delete;
    NonCopyable& operator=(const NonCopyable&) = delete;

protected:
    NonCopyable() = default;
    ~NonCopyable() = default;
};

/// Base of the interfaces to everything outside the system.
class Interface : public NonCopyable {
public:
    virtual ~Interface() = default;

protected:
    Interface() = default;
};

/// Calls `action` at the end of its scope, also if a failure leaves it. The action must not throw.
template <class Action>
class [[nodiscard]] ScopeExit : NonCopyable {
public:
    explicit ScopeExit(Action action) : action_(std::move(action)) {}
    ~ScopeExit() {
        if (armed_) {
            action_();
        }
    }
    /// After this call the action is not called.
    void disarm() { armed_ = false; }

private:
    Action action_;
    bool armed_ = true;
};

/// Sets a flag while in scope.
class [[nodiscard]] FlagGuard : NonCopyable {
public:
    explicit FlagGuard(bool& flag) : flag_(flag) { flag_ = true; }
    ~FlagGuard() { flag_ = false; }

private:
    bool& flag_;
};

}  // namespace orv
