#include "adapters/sqlite/sqlite_files.h"
#include "keeper.h"
#include "store_sql.h"
#include "table_copy.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

void requireSound(const std::string& path) {
    const std::vector<std::string> damages = openStore(path)->damages();
    if (!damages.empty()) {
        throw KeeperFailure(path + ": damaged: " + damages.front());
    }
}

void copyInto(StoreConnection& from, StoreConnection& to, const Options& options, StoreReport& report) {
    copyTables(from, to, telling(options, report));
}

void copyIntoNewFile(const std::string& from, const std::string& file, const Options& options, StoreReport& report) {
    makeWhole(file, [&](const std::string& beside) {
        makeSqliteFile(beside, std::string(kSchemaSql));
        copyInto(*openStore(from), *openStore(beside), options, report);
    });
}

/// The whole file of an embedded store, with the tables of other programs in it.
void copyWholeFile(const std::string& from, const std::string& file) {
    makeWhole(file, [&](const std::string& beside) {
        copySqliteFile(from, beside);
        requireSound(beside);
    });
}

}  // namespace

StoreReport backUpStore(const Options& options) {
    StoreReport report;
    report.facts = {{"store", options.store}, {"backup", options.other}};
    if (isEmbedded(options.store)) {
        copyWholeFile(options.store, options.other);
    } else {
        copyIntoNewFile(options.store, options.other, options, report);
    }
    report.say(options.other + ": written");
    return report;
}

StoreReport restoreStore(const Options& options) {
    if (!isEmbedded(options.other)) {
        throw KeeperFailure(options.other + ": is no backup");
    }
    requireSound(options.other);
    StoreReport report;
    report.facts = {{"store", options.store}, {"backup", options.other}, {"restored", true}};
    if (!stands(options.store)) {
        copyWholeFile(options.other, options.store);
    } else if (!agreed(options, "What " + options.store + " holds goes. Restore?")) {
        report.facts["restored"] = false;
        report.say("nothing restored");
        report.ending = Ending::Findings;
        return report;
    } else if (isEmbedded(options.store)) {
        copySqliteFile(options.other, options.store);
    } else {
        copyInto(*openStore(options.other), *openStore(options.store), options, report);
    }
    report.say(options.store + ": restored from " + options.other);
    return report;
}

StoreReport copyStore(const Options& options) {
    StoreReport report;
    report.facts = {{"source", options.store}, {"target", options.other}};
    const auto source = openStore(options.store);
    if (!stands(options.other)) {
        copyIntoNewFile(options.store, options.other, options, report);
        return report;
    }
    if (fs::equivalent(options.store, options.other)) {
        throw KeeperFailure("source and target are the same");
    }
    requireMayFill(options.other, options);
    copyInto(*source, *openStore(options.other), options, report);
    return report;
}

}  // namespace orv
