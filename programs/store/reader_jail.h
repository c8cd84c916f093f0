#pragma once

namespace orv {

/// Restricts this process to reading open files, writing to `output` and standard error, allocating memory, and ending.
/// Any other call to the kernel ends it at once. False if the kernel cannot do that.
[[nodiscard]] bool lockUp(int output);

}  // namespace orv
