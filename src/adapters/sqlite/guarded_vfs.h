#pragma once

#include <sqlite3.h>

#include <string>

#include "platform/scope.h"

namespace orv {

/// Restricts the files that the engine opens and deletes for one store to the database and its own journals. Any user
/// can put a journal into a folder of the office, and the engine would delete the other files that it names.
///
/// Registered under its own name while in scope. The database that uses it must be closed first.
class GuardedVfs : private sqlite3_vfs, NonCopyable {
public:
    GuardedVfs();
    ~GuardedVfs();

    const char* name() const noexcept { return name_.c_str(); }
    /// Throws a StoreFailure "DBFILE10" if a journal was refused, because it names files of other stores or is not a
    /// plain file with one name. The engine itself only fails to open it.
    void refuseForeignJournal() const;

private:
    static int open(sqlite3_vfs* vfs, const char* path, sqlite3_file* file, int flags, int* given);
    static int remove(sqlite3_vfs* vfs, const char* path, int flushesFolder);
    int openJournal(const char* path, sqlite3_file* file, int flags, int* given);
    bool isOwnJournal(const char* path) const;

    sqlite3_vfs* system_;
    std::string name_;
    std::string store_;
    bool hasRefusedJournal_ = false;
};

}  // namespace orv
