#include <sqlite3.h>

#include "adapters/sqlite/sqlite_store.h"
#include "support/store_files.h"

namespace orv {
namespace {

int addRow(void* list, int count, char** values, char**) {
    std::string row;
    for (int i = 0; i < count; ++i) {
        row += std::string(i > 0 ? "|" : "") + (values[i] != nullptr ? values[i] : "NULL");
    }
    static_cast<std::vector<std::string>*>(list)->push_back(row);
    return 0;
}

}  // namespace

StoreOpener testStore() { return sqliteStore({.busy = std::chrono::minutes(3)}); }

void runSql(const std::string& path, const std::string& sql) { readRows(path, sql); }

std::vector<std::string> readRows(const std::string& path, const std::string& select) {
    std::vector<std::string> found;
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    sqlite3_busy_timeout(database, 180'000);
    EXPECT_EQ(sqlite3_exec(database, select.c_str(), addRow, &found, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
    sqlite3_close(database);
    return found;
}

}  // namespace orv
