#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>

#include "adapters/postgres/wire.h"

namespace orv {
namespace {

constexpr short toEvents(WireState state) {
    switch (state) {
        case WireState::Readable:
            return POLLIN;
        case WireState::Writable:
            return POLLOUT;
        case WireState::Either:
            break;
    }
    return POLLIN | POLLOUT;
}

}  // namespace

WireAnswer waitForWire(int socket, WireState state, std::chrono::milliseconds time) {
    pollfd wire{socket, toEvents(state), 0};
    const int ready = ::poll(&wire, 1, static_cast<int>(time.count()));
    if (ready > 0) {
        return WireAnswer::Ready;
    }
    return ready == 0 || errno == EINTR ? WireAnswer::NotYet : WireAnswer::Failed;
}

std::size_t bytesWaiting(int socket) {
    int bytes = 0;
    return ::ioctl(socket, FIONREAD, &bytes) == 0 && bytes > 0 ? static_cast<std::size_t>(bytes) : 0;
}

std::size_t reservedMemory() {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

}  // namespace orv
