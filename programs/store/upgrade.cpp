#include "adapters/store/fetched_rows.h"
#include "keeper.h"
#include "office_schema.h"
#include "table_copy.h"

namespace orv {
namespace {

struct NewColumn {
    std::string table;
    OfficeColumn column;

    std::string name() const { return table + "." + column.name; }
};

/// The work of an upgrade, and the columns that it keeps although the schema does not have them.
struct Upgrade {
    std::vector<NewColumn> added;
    std::vector<std::string> kept;
};

/// A row that exists already has no value for a new key or for a required column without a default.
void requireAddable(const NewColumn& column) {
    if (column.column.isKey || column.column.isRequired) {
        throw KeeperFailure(column.name() + ": is missing and has no default; restore a backup");
    }
}

/// A missing table is not created, because an empty one would hide the loss of its rows.
std::vector<std::string> requireTable(StoreConnection& store, const std::string& table) {
    std::vector<std::string> columns = store.columns(table);
    if (columns.empty()) {
        throw KeeperFailure(table + ": no such table; this is not the store of an office, or it is incomplete");
    }
    return columns;
}

Upgrade planUpgrade(StoreConnection& store) {
    Upgrade upgrade;
    const std::vector<std::vector<OfficeColumn>> schema = officeColumns();
    for (std::size_t at = 0; at < kOfficeTables.size(); ++at) {
        const std::string table = kOfficeTables[at];
        const ColumnDifferences differences = compareColumns(schema[at], requireTable(store, table));
        for (const OfficeColumn& column : differences.missing) {
            upgrade.added.push_back({table, column});
        }
        for (const std::string& column : differences.foreign) {
            upgrade.kept.push_back(table + "." + column);
        }
    }
    std::ranges::for_each(upgrade.added, requireAddable);
    return upgrade;
}

void addColumns(StoreConnection& store, const std::vector<NewColumn>& columns, const Options& options) {
    store.begin();
    for (const NewColumn& column : columns) {
        reportProgress(options, column.name() + ": adding");
        store.runScript("ALTER TABLE " + column.table + " ADD COLUMN " + column.column.definition);
    }
    store.commit();
}

/// Names the computers on which a company is open. False if there is none.
bool reportUsers(StoreConnection& store, StoreReport& report) {
    const auto computers = firstTexts(store.select("SELECT DISTINCT LOCAL_INFO FROM TBL_LOCK ORDER BY LOCAL_INFO", {}));
    for (const std::string& computer : computers) {
        report.say(computer + ": has a company open");
    }
    report.facts["computers"] = computers;
    return !computers.empty();
}

void reportColumns(const Upgrade& upgrade, StoreReport& report) {
    for (const NewColumn& column : upgrade.added) {
        report.facts["added"].push_back(column.name());
        report.say(column.name() + ": added");
    }
}

}  // namespace

StoreReport upgradeStore(const Options& options) {
    StoreReport report;
    report.facts = {{"store", options.store}, {"added", nlohmann::ordered_json::array()}};
    const auto store = openStore(options.store);
    const Upgrade upgrade = planUpgrade(*store);
    report.facts["kept"] = upgrade.kept;
    for (const std::string& column : upgrade.kept) {
        report.say(column + ": column that the schema does not have; kept");
    }
    if (upgrade.added.empty()) {
        report.say(options.store + ": nothing to do");
        return report;
    }
    if (reportUsers(*store, report)) {
        report.say("nothing changed; close the program there, or free the companies of a crashed one with unlock");
        report.ending = Ending::Findings;
        return report;
    }
    if (!options.other.empty()) {
        report.lines += backUpStore(options).lines;
    }
    addColumns(*store, upgrade.added, options);
    reportColumns(upgrade, report);
    return report;
}

}  // namespace orv
