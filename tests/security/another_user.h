#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace orv {

constexpr uid_t kAnotherUser = 65534;

/// Only root can act as two users.
inline bool canBeAnotherUser() { return ::geteuid() == 0; }

/// Runs `act` in a process of another user and returns its result. Returns -1 if the process is killed.
inline int asAnotherUser(const std::function<bool()>& act) {
    const pid_t child = ::fork();
    if (child == 0) {
        const bool changed = ::setgid(kAnotherUser) == 0 && ::setuid(kAnotherUser) == 0;
        ::_exit(changed ? (act() ? 1 : 0) : 2);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace orv
