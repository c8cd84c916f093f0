#pragma once

#include <string>

#include "adapters/posix/descriptor.h"

namespace orv {

/// True if the process at the other end of a local socket belongs to this user.
bool isOfThisUser(const Descriptor& peer);

/// The next connection to a listening local socket. None if nobody connects or if another user does. Never waits, also
/// not when the connection is read.
Descriptor acceptOwnUser(int listener);

/// A local socket to which only programs of this user come, in a folder that only this user may enter. Both go with the
/// object.
class PrivateSocket {
public:
    /// In the session's own folder of the user (XDG_RUNTIME_DIR), or else in /tmp. Failure 57 when it can't be made.
    PrivateSocket();
    PrivateSocket(const PrivateSocket&) = delete;
    PrivateSocket& operator=(const PrivateSocket&) = delete;
    ~PrivateSocket();

    const std::string& path() const { return path_; }
    /// Can be read when somebody knocks.
    const Descriptor& listener() const { return listener_; }
    /// The next who knocks; none when nobody does, or somebody who is not of this user. Never waits, neither here nor
    /// when the result is read.
    Descriptor accept() const;

private:
    std::string folder_;
    std::string path_;
    Descriptor listener_;
};

}  // namespace orv
