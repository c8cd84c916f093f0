#pragma once

#include <string>

#include "adapters/store/store_connection.h"

namespace orv {

// What is done with whole files of a store, by who keeps it. Every failure is a StoreFailure.

/// Makes a store of the empty file `nativePath`, or of none, and runs the statements of `sql` in it.
void makeSqliteFile(const std::string& nativePath, const std::string& sql);

/// Copies the store `from`, as it is at one moment, in the place of what the store `to`, which may be an empty file,
/// holds: all or nothing. Terminals may be working in both; they wait, and are waited for. `from` is only read: one
/// with a write in its journal that a killed writer has left fails. `access` is how `to` is opened.
void copySqliteFile(const std::string& from, const std::string& to, StoreAccess access);

/// The same into the caller's own file, without the triggers, views and virtual tables: only tables and indexes.
void copySqliteRows(const std::string& from, const std::string& to);

}  // namespace orv
