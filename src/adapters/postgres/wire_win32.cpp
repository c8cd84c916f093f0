#include <winsock2.h>
// After winsock2.h.
#include <psapi.h>

#include "adapters/postgres/wire.h"

namespace orv {
namespace {

class SocketSet {
public:
    SocketSet(int socket, bool isUsed) {
        FD_ZERO(&set_);
        if (isUsed) {
            set_.fd_array[0] = static_cast<SOCKET>(socket);
            set_.fd_count = 1;
        }
    }
    fd_set* set() { return set_.fd_count > 0 ? &set_ : nullptr; }

private:
    fd_set set_{};
};

}  // namespace

/// WSAPoll does not report a refused connection on every Windows.
WireAnswer waitForWire(int socket, WireState state, std::chrono::milliseconds time) {
    SocketSet readable(socket, state != WireState::Writable);
    SocketSet writable(socket, state != WireState::Readable);
    SocketSet failed(socket, true);
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    timeval limit{};
    limit.tv_sec = static_cast<long>(seconds.count());
    limit.tv_usec = static_cast<long>(std::chrono::microseconds(time - seconds).count());
    const int ready = ::select(0, readable.set(), writable.set(), failed.set(), &limit);
    if (ready > 0) {
        return WireAnswer::Ready;
    }
    return ready == 0 ? WireAnswer::NotYet : WireAnswer::Failed;
}

std::size_t bytesWaiting(int socket) {
    u_long bytes = 0;
    return ::ioctlsocket(static_cast<SOCKET>(socket), FIONREAD, &bytes) == 0 ? bytes : 0;
}

std::size_t reservedMemory() {
    PROCESS_MEMORY_COUNTERS counters{};
    return ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters) != 0 ? counters.PagefileUsage : 0;
}

}  // namespace orv
