#pragma once

#include <cstddef>
#include <string>

#include "platform/run_time_error.h"

namespace orv {

/// Returns the content of an open file. Content longer than `limit` is failure 7.
template <class File>
std::string readWhole(const File& file, std::size_t limit) {
    if (file.size() > limit) {
        throw RunTimeError(Failure::OutOfMemory);
    }
    std::string bytes(static_cast<std::size_t>(file.size()) + 1, '\0');  // one more, to see the end in the same reading
    std::size_t filled = 0;
    while (const std::size_t count = file.read(bytes.data() + filled, bytes.size() - filled)) {
        filled += count;
        if (filled > limit) {
            throw RunTimeError(Failure::OutOfMemory);
        }
        if (filled == bytes.size()) {
            bytes.resize(filled * 2);
        }
    }
    bytes.resize(filled);
    return bytes;
}

}  // namespace orv
