#pragma once

#include <string>

#include "adapters/posix/descriptor.h"
#include "platform/scope.h"

namespace orv {

/// True if the process at the other end of a local socket belongs to this user.
bool isOfThisUser(const Descriptor& peer);

/// Returns the next connection to a listening local socket. Returns none if there is none or if it is another user's.
/// Never waits; reading the connection does not wait either.
Descriptor acceptOwnUser(int listener);

/// A local socket for programs of this user only, in a folder that only this user can enter. Both are removed when the
/// object is destroyed.
class PrivateSocket : NonCopyable {
public:
    /// Uses the user's session folder (XDG_RUNTIME_DIR), or else /tmp. Failure 57 if the socket cannot be created.
    PrivateSocket();
    ~PrivateSocket();

    const std::string& path() const { return path_; }
    /// Becomes readable when a program connects.
    const Descriptor& listener() const { return listener_; }
    /// Returns the next connection. Returns none if there is none or if it is another user's. Never waits; reading the
    /// result does not wait either.
    Descriptor accept() const;

private:
    std::string folder_;
    std::string path_;
    Descriptor listener_;
};

}  // namespace orv
