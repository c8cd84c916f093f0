#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace orv {

// The parts that each system has in its own way: sockets and the memory of this process.

/// The state of a socket for which a call waits.
enum class WireState : std::uint8_t { Readable, Writable, Either };

enum class WireAnswer : std::uint8_t { Ready, NotYet, Failed };

/// Waits that long until the socket has the state. A socket with a failure is ready.
WireAnswer waitForWire(int socket, WireState state, std::chrono::milliseconds time);

/// Returns the number of bytes that have arrived and have not been read.
std::size_t bytesWaiting(int socket);

/// Returns the bytes of memory that this process has reserved, or 0 if the system does not say.
std::size_t reservedMemory();

}  // namespace orv
