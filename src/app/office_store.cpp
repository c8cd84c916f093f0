#include "app/office_store.h"

#include "adapters/postgres/postgres_store.h"
#include "adapters/sqlite/sqlite_store.h"
#include "adapters/store/store_file_check.h"

namespace orv {

StoreOpener officeStore() {
    return [embedded = sqliteStore(), server = postgresStore()](const std::string& nativePath, StoreAccess access) {
        const bool isServer = detectStoreKind(nativePath) == StoreKind::Server;
        return (isServer ? server : embedded)(nativePath, access);
    };
}

}  // namespace orv
