#include "site.h"

#include <fstream>
#include <iterator>
#include <utility>

#include "adapters/sqlite/sqlite_database.h"
#include "adapters/sqlite/sqlite_store.h"
#include "app/office_store.h"
#include "sample_folder.h"

namespace bench {
namespace {

constexpr const char* kModel = "000004601";

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Returns copies of the model's row with their own numbers, without photos, which are not part of the store.
std::string copyRows(orv::StoreConnection& store, const std::string& table, int companies) {
    std::string names;
    std::string values;
    for (const std::string& column : store.columns(table)) {
        const bool isKey = names.empty();
        const bool isPhoto = column.starts_with("PHOTO_") || column.starts_with("photo_");
        names += (isKey ? "" : ", ") + column;
        values += isKey ? "CAST(100000000 + i AS TEXT)" : (isPhoto ? ", NULL" : ", " + column);
    }
    return "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(companies) +
           ") INSERT INTO " + table + " (" + names + ") SELECT " + values + " FROM " + table + ", n WHERE USER_ID = '" +
           kModel + "';";
}

}  // namespace

Site::Site(fs::path folder, const fs::path& store, int companies) : folder_(std::move(folder)) {
    fs::create_directories(folder_ / "MDB");
    fs::copy_file(store, this->store());
    const auto open = orv::officeStore()(this->store(), orv::StoreAccess::ReadWrite);
    for (const char* table : {"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE"}) {
        open->runScript(copyRows(*open, table, companies));
    }
}

std::string Site::terminal(int number) const {
    const fs::path office = folder_ / ("terminal" + std::to_string(number));
    if (!fs::exists(office)) {
        fs::copy(orv::kSampleFolder, office, fs::copy_options::recursive);
        fs::remove_all(office / "C/ORV/MDB");
        fs::create_directory_symlink(fs::absolute(folder_ / "MDB"), office / "C/ORV/MDB");
    }
    return fs::absolute(office / "C/ORV/BIN").string();
}

void Site::reachBy(const std::string& text) const { std::ofstream(store()) << text << "\n"; }

void Site::beginAgain() const {
    const auto open = orv::officeStore()(store(), orv::StoreAccess::ReadWrite);
    open->runScript("UPDATE TBL_CUSTOMER_INFO SET ADDRESS_GOU = '0'; DELETE FROM TBL_LOCK;");
    for (const auto& entry : fs::directory_iterator(folder_)) {
        if (entry.path().filename().string().starts_with("ledger")) {
            fs::remove(entry.path());
        }
    }
}

std::map<std::string, int> Site::counts() const {
    std::map<std::string, int> counts;
    const auto open = orv::officeStore()(store(), orv::StoreAccess::ReadOnly);
    const orv::RecordsetPtr rows = open->select("SELECT USER_ID, ADDRESS_GOU FROM TBL_CUSTOMER_INFO", {});
    for (; !rows->Eof(); rows->MoveNext()) {
        counts[orv::toText(rows->Fields(0))] = std::stoi(orv::toText(rows->Fields(1)));
    }
    return counts;
}

int Site::locks() const {
    const auto open = orv::officeStore()(store(), orv::StoreAccess::ReadOnly);
    return std::stoi(orv::toText(open->select("SELECT COUNT(*) FROM TBL_LOCK", {})->Fields(0)));
}

void makeSampleFile(const fs::path& file) {
    std::string sql;
    for (const char* name : {"schema", "masters", "companies"}) {
        sql += readFile(fs::path(orv::kSampleFolder) / "sql" / (std::string(name) + ".sql"));
    }
    orv::SqliteDatabase(file.string(), orv::StoreAccess::Create, {}).runScript(sql);
}

}  // namespace bench
