#pragma once

namespace orv {

/// True for a regular file with one name, and if nothing is there. False for a link. The path is native, in UTF-8.
bool isPlainOrMissing(const char* path);

}  // namespace orv
