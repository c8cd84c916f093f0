#include "memory_store.h"
#include "support/store_files.h"

namespace orv {

StoreOpener testStore() { return memoryStore(); }

void runSql(const std::string& path, const std::string& sql) { runInMemory(path, sql); }

std::vector<std::string> readRows(const std::string& path, const std::string& select) {
    return rowsInMemory(path, select);
}

}  // namespace orv
