#pragma once

#include <cstdint>
#include <span>

namespace orv {

using Bytes = std::span<const std::uint8_t>;

/// Returns the number of `length` bytes (8 at most) at `at`, or 0 if it would extend beyond the end.
constexpr std::uint64_t numberAt(Bytes bytes, std::size_t at, std::size_t length, bool highFirst) {
    if (at > bytes.size() || bytes.size() - at < length) {
        return 0;
    }
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < length; ++i) {
        value = value << 8 | bytes[at + (highFirst ? i : length - 1 - i)];
    }
    return value;
}

constexpr std::uint64_t highFirst(Bytes bytes, std::size_t at, std::size_t length) {
    return numberAt(bytes, at, length, true);
}

constexpr std::uint64_t lowFirst(Bytes bytes, std::size_t at, std::size_t length) {
    return numberAt(bytes, at, length, false);
}

}  // namespace orv
