#pragma once

#include <cstdint>
#include <string>

namespace orv {

/// What stands at the place of a store: the database itself, or a text that names the server that has it.
enum class StoreKind : std::uint8_t { Embedded, Server };

/// Looks at the file before an engine does, since an engine would take an empty file for a new database and would tell
/// a missing file, a folder and a file of another program apart only by a number. Reads its first bytes only, creates
/// and alters nothing, and does not wait on a pipe. Failure: a StoreFailure with a code "DBFILE01" to "DBFILE07".
StoreKind storeKindOf(const std::string& nativePath);

/// The same for who knows one kind only; the other is "DBFILE07" too.
void requireStoreKind(const std::string& nativePath, StoreKind kind);

/// Whether the file is a database of the older form, which is no store. Failure: as above, "DBFILE01" to "DBFILE04".
bool isJetFile(const std::string& nativePath);

}  // namespace orv
