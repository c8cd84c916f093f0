#include "adapters/sqlite/sqlite_files.h"

#include "adapters/sqlite/sqlite_database.h"

namespace orv {

void makeSqliteFile(const std::string& nativePath, const std::string& sql) {
    SqliteDatabase database(nativePath, StoreAccess::Create, {});
    database.runScript("BEGIN; " + sql + " COMMIT;");
}

void copySqliteFile(const std::string& from, const std::string& to, StoreAccess access) {
    const SqliteDatabase source(from, StoreAccess::ReadOnly, {});
    const SqliteDatabase target(to, access, {});
    source.copyTo(target);
}

void copySqliteRows(const std::string& from, const std::string& to) {
    copySqliteFile(from, to, StoreAccess::OwnFile);
    SqliteDatabase(to, StoreAccess::OwnFile, {}).dropPrograms();
}

}  // namespace orv
