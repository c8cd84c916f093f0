#pragma once

#include <cstddef>

namespace orv {

/// The next time that at least so many bytes are asked for, there are none.
void refuseMemory(std::size_t bytes);

}  // namespace orv
