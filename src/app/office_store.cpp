#include "app/office_store.h"

#include "adapters/sqlite/sqlite_store.h"
#include "adapters/store/store_failure.h"
#include "adapters/store/store_file_check.h"
#ifdef ORV_SERVER_STORE
#include "adapters/postgres/postgres_store.h"
#endif

namespace orv {
namespace {

#ifdef ORV_SERVER_STORE
StoreOpener serverStore() { return postgresStore(); }
#else
constexpr StoreRefusal kNoServer{"DBFILE11", Failure::InvalidCall,
                                 "このコンピューターのプログラムは、サーバーのデータベースを使えません。"
                                 "データベースのファイルを置いてください。"};

StoreOpener serverStore() {
    return [](const std::string&, StoreAccess) -> std::unique_ptr<StoreConnection> { refuse(kNoServer); };
}
#endif

}  // namespace

StoreOpener officeStore() {
    return [embedded = sqliteStore(), server = serverStore()](const std::string& nativePath, StoreAccess access) {
        const bool isServer = detectStoreKind(nativePath) == StoreKind::Server;
        return (isServer ? server : embedded)(nativePath, access);
    };
}

}  // namespace orv
