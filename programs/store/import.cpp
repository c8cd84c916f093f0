#include "adapters/sqlite/sqlite_files.h"
#include "adapters/store/store_file_check.h"
#include "jet_import.h"
#include "store_sql.h"

namespace orv {
namespace {

/// The engine that wrote the file keeps a second one next to it while a program has it open.
void requireAtRest(const std::string& path) {
    for (const char* ending : {".ldb", ".LDB"}) {
        const std::string lockFile = std::filesystem::path(path).replace_extension(ending);
        if (storeExists(lockFile)) {
            throw KeeperFailure(lockFile +
                                " shows that the file is in use: close the old programs, or remove it when "
                                "none of them runs");
        }
    }
}

std::vector<WholeTable> tablesIn(const Options& options, StoreReport& report) {
    if (!isJetFile(options.store)) {
        throw KeeperFailure(options.store + ": is not a Jet file");
    }
    requireAtRest(options.store);
    reportProgress(options, options.store + ": reading");
    const JetFile file = readJetFile(options.store, {kOfficeTables.begin(), kOfficeTables.end()});
    return makeOfficeTables(file, options, report);
}

void fillNewFile(const std::vector<WholeTable>& tables, const Options& options, StoreReport& report) {
    makeWhole(options.other, "", [&](const std::string& newFile) {
        makeSqliteFile(newFile, std::string(kSchemaSql).append(kMastersSql));
        writeTables(tables, *openStore(newFile, StoreAccess::OwnFile), makeReporter(options, report));
    });
}

}  // namespace

StoreReport importJet(const Options& options) {
    StoreReport report;
    report.facts = {{"source", options.store},
                    {"found", nlohmann::ordered_json::array()},
                    {"findings", nlohmann::ordered_json::array()}};
    const bool fillsStore = !options.other.empty() && storeExists(options.other);
    if (fillsStore) {
        requireMayFill(options.other, options);
    }
    const std::vector<WholeTable> tables = tablesIn(options, report);
    if (options.other.empty()) {
        return report;
    }
    report.facts["target"] = options.other;
    if (fillsStore) {
        writeTables(tables, *openStore(options.other), makeReporter(options, report));
    } else {
        fillNewFile(tables, options, report);
    }
    return report;
}

}  // namespace orv
