#pragma once

#include <string>

namespace orv {

/// Looks at the file before the engine does, since the engine would take an empty file for a new database and would
/// tell a missing file, a folder and a file of another program apart only by a number.
/// Reads its first bytes only, creates and alters nothing, and does not wait on a pipe.
/// Failure: a StoreFailure with a code "DBFILE01" to "DBFILE07".
void checkStoreFile(const std::string& nativePath);

}  // namespace orv
