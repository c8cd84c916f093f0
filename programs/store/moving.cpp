#include "adapters/sqlite/sqlite_files.h"
#include "adapters/store/file_path.h"
#include "keeper.h"
#include "private_folder.h"
#include "source_store.h"
#include "store_sql.h"
#include "table_copy.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

/// `copy` is private to this process; `path` is its store.
void requireSound(const std::string& copy, const std::string& path) {
    const std::vector<std::string> damages = openStore(copy, StoreAccess::OwnCopy)->damages();
    if (!damages.empty()) {
        throw KeeperFailure(path + ": damaged: " + damages.front());
    }
}

void copyInto(StoreConnection& from, StoreConnection& to, const Options& options, StoreReport& report) {
    copyTables(from, to, makeReporter(options, report));
}

void copyIntoNewFile(StoreConnection& from, const std::string& file, const Options& options, StoreReport& report) {
    makeWhole(file, "", [&](const std::string& newFile) {
        makeSqliteFile(newFile, std::string(kSchemaSql));
        copyInto(from, *openStore(newFile, StoreAccess::OwnFile), options, report);
    });
}

/// Copies all rows of an embedded store, including other programs' tables, and nothing that could run.
void copyRows(const std::string& from, const std::string& newFile) {
    copySqliteRows(from, newFile);
    requireSound(newFile, from);
}

}  // namespace

StoreReport backUpStore(const Options& options) {
    StoreReport report;
    report.facts = {{"store", options.store}, {"backup", options.other}};
    if (isEmbedded(options.store)) {
        makeWhole(options.other, options.store, [&](const std::string& newFile) { copyRows(options.store, newFile); });
    } else {
        copyIntoNewFile(SourceStore(options.store).get(), options.other, options, report);
    }
    report.say(options.other + ": written");
    return report;
}

StoreReport restoreStore(const Options& options) {
    if (!isEmbedded(options.other)) {
        throw KeeperFailure(options.other + ": is not a backup");
    }
    // Uses a copy, because the backup's owner might still be changing it.
    const PrivateFolder own(fs::temp_directory_path());
    copyRows(options.other, own.file());
    StoreReport report;
    report.facts = {{"store", options.store}, {"backup", options.other}, {"restored", true}};
    if (!storeExists(options.store)) {
        makeWhole(options.store, "",
                  [&](const std::string& newFile) { restoreSqliteFile(own.file(), newFile, StoreAccess::OwnFile); });
    } else if (!agreed(options, "The content of " + options.store + " will be replaced. Restore?")) {
        report.facts["restored"] = false;
        report.say("nothing restored");
        report.ending = Ending::Findings;
        return report;
    } else if (isEmbedded(options.store)) {
        restoreSqliteFile(own.file(), options.store, StoreAccess::ReadWrite);
    } else {
        copyInto(*openStore(own.file(), StoreAccess::OwnCopy), *openStore(options.store), options, report);
    }
    report.say(options.store + ": restored from " + options.other);
    return report;
}

StoreReport copyStore(const Options& options) {
    StoreReport report;
    report.facts = {{"source", options.store}, {"target", options.other}};
    const SourceStore source(options.store);
    if (!storeExists(options.other)) {
        copyIntoNewFile(source.get(), options.other, options, report);
        return report;
    }
    if (fs::equivalent(filePath(options.store), filePath(options.other))) {
        throw KeeperFailure("source and target are the same");
    }
    requireMayFill(options.other, options);
    copyInto(source.get(), *openStore(options.other), options, report);
    return report;
}

}  // namespace orv
