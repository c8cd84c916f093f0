#pragma once

#include <cstdint>
#include <string>

namespace orv {

/// The kind of file at the place of a store: the database itself, or a text that names its server.
enum class StoreKind : std::uint8_t { Embedded, Server };

/// Checks the file before an engine opens it. An engine would use an empty file as a new database, and would report
/// missing files, folders and foreign files only by a number. Reads only the first bytes, changes nothing, and does not
/// wait for a pipe. Throws a StoreFailure with a code "DBFILE01" to "DBFILE07".
StoreKind detectStoreKind(const std::string& nativePath);

/// The same for callers that support only one kind; the other is also "DBFILE07".
void requireStoreKind(const std::string& nativePath, StoreKind kind);

/// True if the file is a database of the older form, which cannot be a store. Throws as above, "DBFILE01" to
/// "DBFILE04".
bool isJetFile(const std::string& nativePath);

}  // namespace orv
