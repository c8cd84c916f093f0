#pragma once

#include "adapters/posix/descriptor.h"

namespace orv {

/// True if the process at the other end of a local socket belongs to this user.
bool isOfThisUser(const Descriptor& peer);

/// The next connection to a listening local socket. None if nobody connects or if another user does. Never waits, also
/// not when the connection is read.
Descriptor acceptOwnUser(int listener);

}  // namespace orv
