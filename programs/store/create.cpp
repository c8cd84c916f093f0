#include "adapters/sqlite/sqlite_files.h"
#include "keeper.h"
#include "store_sql.h"

namespace orv {
namespace {

void createOnServer(const std::string& path) {
    const auto store = openStore(path);
    store->begin();
    store->runScript(std::string(kServerSql).append(kSchemaSql).append(kMastersSql));
    store->commit();
}

}  // namespace

StoreReport createStore(const Options& options) {
    const bool onServer = storeExists(options.store) && !isEmbedded(options.store);
    if (onServer) {
        createOnServer(options.store);
    } else {
        makeWhole(options.store, "", [](const std::string& newFile) {
            makeSqliteFile(newFile, std::string(kSchemaSql).append(kMastersSql));
        });
    }
    StoreReport report;
    report.facts = {{"created", options.store}, {"kind", onServer ? "server" : "file"}};
    report.say(options.store + ": made, without a company");
    return report;
}

}  // namespace orv
