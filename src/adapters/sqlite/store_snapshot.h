#pragma once

#include <chrono>
#include <string>

namespace orv {

/// Copies the store `from` and its journal or write-ahead log, as they are at one moment, byte for byte. `to` is the
/// caller's own empty file, and its journals are new. The originals are only read, and no file next to them is created.
/// An engine that opens the copy completes or undoes an interrupted write there.
///
/// Holds the lock of a reader: terminals that commit wait until the copy is complete. Waits up to `patience` for such a
/// terminal, and for a moment in which a write-ahead log does not change. Throws a StoreFailure after that time
/// ("DB5"), if the copy does not fit on the disk ("DB13"), or for a foreign journal ("DBFILE10").
void copyStoreFiles(const std::string& from, const std::string& to, std::chrono::milliseconds patience);

}  // namespace orv
