#pragma once

#include <string_view>

namespace orv {

/// Refuses a change that also reads other rows or calls a function that could. Otherwise a value that ends its literal
/// could fetch another company's data. Only plain literals, names, numbers and `Left` are accepted, because a read
/// could be hidden in anything else. Called before the statement is sent.
void refuseNestedReads(std::string_view change);

}  // namespace orv
