#include "adapters/posix/private_socket.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr int kMostWaiting = 4;

constexpr std::string_view kFolderPattern = "/orv-siblings-XXXXXX";
constexpr std::string_view kSocketName = "/line";

/// The path must be absolute, because the other program can run in another folder. A socket's address is also short.
bool fits(std::string_view place) {
    return place.starts_with('/') &&
           place.size() + kFolderPattern.size() + kSocketName.size() < sizeof(sockaddr_un::sun_path);
}

/// Creates a folder of mode 0700 with a unique name. Returns "" if that fails.
std::string freshFolder() {
    const char* session = std::getenv("XDG_RUNTIME_DIR");
    for (const std::string place : {session != nullptr ? session : "", "/tmp"}) {
        std::string folder = place + std::string(kFolderPattern);
        if (fits(place) && ::mkdtemp(folder.data()) != nullptr) {
            return folder;
        }
    }
    return {};
}

Descriptor listenAt(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket || path.size() >= sizeof address.sun_path) {
        return Descriptor();
    }
    path.copy(address.sun_path, path.size());
    const auto* const name = reinterpret_cast<const sockaddr*>(&address);
    const bool listens =
        ::bind(socket.number(), name, sizeof address) == 0 && ::listen(socket.number(), kMostWaiting) == 0;
    return listens ? std::move(socket) : Descriptor();
}

}  // namespace

bool isOfThisUser(const Descriptor& peer) {
    ucred who{};
    socklen_t size = sizeof who;
    return ::getsockopt(peer.number(), SOL_SOCKET, SO_PEERCRED, &who, &size) == 0 && who.uid == ::geteuid();
}

Descriptor acceptOwnUser(int listener) {
    Descriptor peer(::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    return peer && isOfThisUser(peer) ? std::move(peer) : Descriptor();
}

PrivateSocket::PrivateSocket()
    : folder_(freshFolder()), path_(folder_ + std::string(kSocketName)), listener_(listenAt(path_)) {
    if (!listener_) {
        ::rmdir(folder_.c_str());
        throw RunTimeError(Failure::DeviceIo);
    }
}

PrivateSocket::~PrivateSocket() {
    ::unlink(path_.c_str());
    ::rmdir(folder_.c_str());
}

Descriptor PrivateSocket::accept() const { return acceptOwnUser(listener_.number()); }

}  // namespace orv
