#pragma once

#include <string>

#include "adapters/store/store_connection.h"

namespace orv {

// Operations on whole store files for the administrator. Every failure is a StoreFailure.

/// Creates a store in `nativePath`, which must be missing or empty, and runs the statements of `sql` in it.
void makeSqliteFile(const std::string& nativePath, const std::string& sql);

/// Copies the store `from`, as it is at one moment, into the caller's own empty file `to`. Terminals can be working in
/// `from`: those that commit wait until it is copied. A write that was interrupted is completed or undone in the copy.
/// `from` and its journals are only read, and no file next to them is created.
void snapshotSqliteFile(const std::string& from, const std::string& to);

/// Makes the same snapshot without the triggers, views and virtual tables: only tables and indexes.
void copySqliteRows(const std::string& from, const std::string& to);

/// Replaces the content of the store `to`, which can be an empty file, by that of the caller's own copy `from`: all or
/// nothing. Terminals can be working in `to`: they wait, and are waited for. `access` is the way to open `to`.
void restoreSqliteFile(const std::string& from, const std::string& to, StoreAccess access);

}  // namespace orv
