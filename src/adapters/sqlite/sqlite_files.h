#pragma once

#include <string>

namespace orv {

// What is done with whole files of a store, by who keeps it. Every failure is a StoreFailure.

/// Makes a store at `nativePath`, where no file may be, and runs the statements of `sql` in it.
void makeSqliteFile(const std::string& nativePath, const std::string& sql);

/// Copies the store `from`, as it is at one moment, in the place of what the store `to` holds, or to a new file: all or
/// nothing. Terminals may be working in both; they wait, and are waited for.
void copySqliteFile(const std::string& from, const std::string& to);

}  // namespace orv
