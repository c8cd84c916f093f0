#pragma once

namespace orv {

/// From here on this process may read what it has open, write to `output` and to its standard error, take and give
/// back memory, and end. Any other call to the kernel ends it at once. False where the kernel cannot do that.
[[nodiscard]] bool lockUp(int output);

}  // namespace orv
