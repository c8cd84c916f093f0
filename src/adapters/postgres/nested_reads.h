#pragma once

#include <string_view>

namespace orv {

/// Refuses a statement that changes the store and reads other rows beside, or calls a function that could: a value that
/// ends its literal could fetch another company's. Only plain literals, names, numbers and `Left` are let through, so
/// that there is nothing in which a read could hide. Nothing has been sent then.
void refuseNestedReads(std::string_view change);

}  // namespace orv
