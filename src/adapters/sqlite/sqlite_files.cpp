#include "adapters/sqlite/sqlite_files.h"

#include "adapters/sqlite/sqlite_database.h"
#include "adapters/sqlite/store_snapshot.h"

namespace orv {

void makeSqliteFile(const std::string& nativePath, const std::string& sql) {
    SqliteDatabase database(nativePath, StoreAccess::Create, {});
    database.runScript("BEGIN; " + sql + " COMMIT;");
}

void snapshotSqliteFile(const std::string& from, const std::string& to) {
    const SqliteLimits limits;
    copyStoreFiles(from, to, limits.busy);
    // Opening the file undoes an interrupted write. This completes the writes of a write-ahead log.
    SqliteDatabase(to, StoreAccess::OwnFile, limits).runScript("PRAGMA journal_mode = DELETE");
}

void copySqliteRows(const std::string& from, const std::string& to) {
    snapshotSqliteFile(from, to);
    SqliteDatabase(to, StoreAccess::OwnFile, {}).dropPrograms();
}

void restoreSqliteFile(const std::string& from, const std::string& to, StoreAccess access) {
    const SqliteDatabase source(from, StoreAccess::OwnCopy, {});
    const SqliteDatabase target(to, access, {});
    source.copyTo(target);
}

}  // namespace orv
