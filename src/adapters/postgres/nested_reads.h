#pragma once

#include <string_view>

namespace orv {

/// Refuses a change that also reads other rows, or calls a function that could: a value that ends its literal could
/// fetch another company's data. Only plain literals, names, numbers and `Left` are let through, so
/// that there is nothing in which a read could hide. Nothing has been sent then.
void refuseNestedReads(std::string_view change);

}  // namespace orv
