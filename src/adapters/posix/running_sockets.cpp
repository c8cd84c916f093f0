#include "adapters/posix/running_sockets.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <cstddef>

#include "adapters/posix/private_socket.h"

namespace orv {
namespace {

constexpr int kMostWaiting = 4;

struct Address {
    sockaddr_un socket{.sun_family = AF_UNIX, .sun_path = {}};
    socklen_t length = 0;

    const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&socket); }
};

/// An address has a limited length and a name does not, so the address contains a hash of the name. An initial zero
/// byte means that there is no file.
Address makeAddress(const std::string& place, const std::string& name) {
    const std::string text = "orv-" + std::to_string(::geteuid()) + "-" +
                             std::to_string(std::hash<std::string>()(place)) + "-" +
                             std::to_string(std::hash<std::string>()(name));
    Address address;
    text.copy(address.socket.sun_path + 1, sizeof address.socket.sun_path - 1);
    address.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + text.size());
    return address;
}

Descriptor localSocket() { return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)); }

/// The connection itself is the message. It arrives even if the other run is busy.
bool notifyOwner(const Address& address) {
    const Descriptor peer = localSocket();
    return peer && ::connect(peer.number(), address.get(), address.length) == 0 && isOfThisUser(peer);
}

}  // namespace

bool RunningSockets::claim(const std::string& name) {
    const Address address = makeAddress(place_, name);
    if (held_.contains(name)) {
        return true;
    }
    Descriptor listener = localSocket();
    if (!listener || ::bind(listener.number(), address.get(), address.length) != 0) {
        return !notifyOwner(address);
    }
    ::listen(listener.number(), kMostWaiting);
    const int number = listener.number();
    auto watch = watch_(number, [this, number] {
        if (acceptOwnUser(number)) {
            called_();
        }
    });
    held_.insert_or_assign(name, Held{std::move(listener), std::move(watch)});
    return true;
}

}  // namespace orv
