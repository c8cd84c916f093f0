#pragma once

#include "adapters/sqlite/sqlite_store.h"
#include "adapters/store/store_service.h"

namespace orv {

/// A database service for SQLite files only.
class SqliteDbService : public StoreService {
public:
    explicit SqliteDbService(const FileSystem& files, const SqliteLimits& limits = {})
        : StoreService(files, sqliteStore(limits)) {}
};

}  // namespace orv
