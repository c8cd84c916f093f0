#pragma once

#include <string>

namespace orv {

// What is done with whole files of a store, by who keeps it. Every failure is a StoreFailure.

/// Makes a store of the empty file `nativePath`, or of none, and runs the statements of `sql` in it.
void makeSqliteFile(const std::string& nativePath, const std::string& sql);

/// Copies the store `from`, as it is at one moment, in the place of what the store `to`, which may be an empty file,
/// holds: all or nothing. Terminals may be working in both; they wait, and are waited for. `from` is only read: one
/// with a write in its journal that a killed writer has left fails.
void copySqliteFile(const std::string& from, const std::string& to);

/// The same without what could run in the copy: its triggers, views and virtual tables. Nobody else may have `to` open.
void copySqliteRows(const std::string& from, const std::string& to);

}  // namespace orv
