#pragma once

#include "adapters/sqlite/sqlite_store.h"
#include "adapters/store/store_service.h"

namespace orv {

/// The gateway over SQLite files only.
class SqliteDbService : public StoreService {
public:
    explicit SqliteDbService(const FileSystem& files, std::chrono::milliseconds busyWait = kSqliteBusyWait)
        : StoreService(files, sqliteStore(busyWait)) {}
};

}  // namespace orv
