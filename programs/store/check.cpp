#include "adapters/store/fetched_rows.h"
#include "adapters/store/file_path.h"
#include "adapters/store/store_failure.h"
#include "keeper.h"
#include "office_rights.h"
#include "office_schema.h"
#include "platform/ascii.h"
#include "source_store.h"
#include "table_copy.h"

namespace orv {
namespace {

/// A select whose rows are findings: the company or word, and the fault.
struct Question {
    const char* what;
    std::string sql;
};

std::string without(const std::string& table, const std::string& other) {
    return "SELECT USER_ID FROM " + table + " WHERE USER_ID NOT IN (SELECT USER_ID FROM " + other +
           ") ORDER BY USER_ID";
}

/// Finds companies whose word is not in the list of that type, deleted rows excluded. The page cannot show it.
std::string unknownWord(const std::string& column, const std::string& table, const std::string& type) {
    return "SELECT USER_ID FROM " + table + " WHERE " + column + " <> '' AND " + column +
           " NOT IN (SELECT ITEM_NAME FROM MST_OTHERS WHERE TYPE_CODE = '" + type + "' AND DEL_FLAG = FALSE)" +
           " ORDER BY USER_ID";
}

std::string emptyList(const std::string& type) {
    return "SELECT '" + type + "' WHERE NOT EXISTS (SELECT 1 FROM MST_OTHERS WHERE TYPE_CODE = '" + type +
           "' AND DEL_FLAG = FALSE)";
}

std::vector<Question> questions() {
    const std::string info = "TBL_CUSTOMER_INFO";
    const std::string add = "TBL_CUSTOMER_ADD";
    const std::string date = "TBL_CUSTOMER_DATE";
    std::vector<Question> all = {
        {"no row in TBL_CUSTOMER_ADD: the company does not open", without(info, add)},
        {"no row in TBL_CUSTOMER_DATE: the company can't be saved", without(info, date)},
        {"a row in TBL_CUSTOMER_ADD of no company", without(add, info)},
        {"a row in TBL_CUSTOMER_DATE of no company", without(date, info)},
        {"a lock on no company",
         "SELECT USER_ID FROM TBL_LOCK WHERE USER_ID <> '---------' AND PROPERTY_TYPE_CODE = 'COS'"
         " AND USER_ID NOT IN (SELECT USER_ID FROM TBL_CUSTOMER_INFO) ORDER BY USER_ID"},
        {"LICENSE_NO is in no list", unknownWord("LICENSE_NO", info, "002")},
        {"GET_LICENSE_NENGOU is in no list", unknownWord("GET_LICENSE_NENGOU", info, "003")},
        {"VALID_LICENSE_NENGOU is in no list", unknownWord("VALID_LICENSE_NENGOU", info, "003")},
        {"DANTAI_NAME is in no list", unknownWord("DANTAI_NAME", info, "004")},
        {"PHOTO_GRP1 is in no list", unknownWord("PHOTO_GRP1", add, "005")},
        {"PHOTO_GRP2 is in no list", unknownWord("PHOTO_GRP2", add, "005")},
    };
    for (const char* type : {"002", "003", "004", "005"}) {
        all.push_back({"MST_OTHERS has no word of this type: a page does not open", emptyList(type)});
    }
    return all;
}

/// The table of the profiles, which can also be in a server's store.
constexpr std::string_view kProfiles = "Transmit_Info";

bool isOfSchema(const StoreObject& object) {
    return object.kind == "table" &&
           (equalWithoutCase(object.name, kProfiles) || std::ranges::any_of(kOfficeTables, [&](const char* table) {
                return equalWithoutCase(object.name, table);
            }));
}

/// True as well where the engine keeps no definition.
bool isDefinedAsInSchema(const StoreObject& object) {
    return object.definition.empty() || equalWithoutCase(object.name, kProfiles) ||
           isOfficeDefinition(object.definition);
}

class Check {
public:
    Check(StoreConnection& store, const std::string& path) : store_(store), path_(path) {
        report_.facts = {{"tables", nlohmann::ordered_json::object()}, {"findings", nlohmann::ordered_json::array()}};
    }

    StoreReport run() {
        runCheck("damage", [&] {
            for (const std::string& damage : store_.damages()) {
                reportFinding("damage", damage);
            }
        });
        runCheck("objects", [&] { listForeignObjects(); });
        for (std::size_t table = 0; table < kOfficeTables.size(); ++table) {
            runCheck(kOfficeTables[table], [&] { readTable(kOfficeTables[table], columns_[table]); });
        }
        for (const Question& question : questions()) {
            runCheck(question.what, [&] {
                for (const std::string& what : firstTexts(store_.select(question.sql, {}))) {
                    reportFinding(what, question.what);
                }
            });
        }
        runCheck("locks", [&] { listLocks(store_, report_); });
        reportOpenRights(filePath(path_), !isEmbedded(path_),
                         [&](const std::string& path, const std::string& what) { reportFinding(path, what); });
        return std::move(report_);
    }

private:
    void reportFinding(const std::string& where, const std::string& what) {
        report_.ending = Ending::Findings;
        report_.facts["findings"].push_back({{"where", where}, {"what", what}});
        report_.say(where + ": " + what);
    }

    /// Reports a failed question as a finding and continues.
    template <typename Ask>
    void runCheck(const std::string& what, Ask ask) {
        try {
            ask();
        } catch (const StoreFailure& failure) {
            reportFinding(what, failure.description() + " [" + failure.code() + "]");
        }
    }

    void listForeignObjects() {
        for (const StoreObject& object : store_.objects()) {
            if (!isOfSchema(object)) {
                reportFinding(object.name, object.kind + " that the schema does not have");
            } else if (!isDefinedAsInSchema(object)) {
                reportFinding(object.name, "is not defined as in the schema: it can hold checks or computed columns");
            }
        }
    }

    void readTable(const std::string& table, const std::vector<OfficeColumn>& known) {
        const RecordsetPtr rows = store_.select("SELECT * FROM " + table, {});
        const ColumnDifferences differences = compareColumns(known, store_.columns(table));
        for (const std::string& column : differences.foreign) {
            reportFinding(table + "." + column, "column that the schema does not have");
        }
        for (const OfficeColumn& column : differences.missing) {
            reportFinding(table, "no column " + column.name + ": orv_store upgrade");
        }
        report_.facts["tables"][table] = rows->RecordCount();
        report_.say(table + ": " + std::to_string(rows->RecordCount()) + " rows");
    }

    StoreConnection& store_;
    std::string path_;
    std::vector<std::vector<OfficeColumn>> columns_ = officeColumns();
    StoreReport report_;
};

}  // namespace

StoreReport checkStore(const Options& options) {
    const SourceStore source(options.store);
    return Check(source.get(), options.store).run();
}

}  // namespace orv
