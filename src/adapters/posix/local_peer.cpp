#include "adapters/posix/local_peer.h"

#include <sys/socket.h>

#include <utility>

namespace orv {

bool isOfThisUser(const Descriptor& peer) {
    ucred who{};
    socklen_t size = sizeof who;
    return ::getsockopt(peer.number(), SOL_SOCKET, SO_PEERCRED, &who, &size) == 0 && who.uid == ::geteuid();
}

Descriptor acceptOwnUser(int listener) {
    Descriptor peer(::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    return peer && isOfThisUser(peer) ? std::move(peer) : Descriptor();
}

}  // namespace orv
