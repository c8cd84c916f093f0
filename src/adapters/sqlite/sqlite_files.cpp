#include "adapters/sqlite/sqlite_files.h"

#include "adapters/sqlite/sqlite_database.h"
#include "adapters/sqlite/sqlite_store.h"

namespace orv {

void makeSqliteFile(const std::string& nativePath, const std::string& sql) {
    SqliteDatabase database(nativePath, StoreAccess::Create, kSqliteBusyWait);
    database.runScript("BEGIN; " + sql + " COMMIT;");
}

void copySqliteFile(const std::string& from, const std::string& to) {
    const SqliteDatabase source(from, StoreAccess::ReadWrite, kSqliteBusyWait);
    const SqliteDatabase target(to, StoreAccess::Create, kSqliteBusyWait);
    source.copyTo(target);
}

}  // namespace orv
