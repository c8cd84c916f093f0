#include "adapters/sqlite/sqlite_store.h"

#include <algorithm>

#include "adapters/sqlite/left_rewriter.h"
#include "adapters/sqlite/sqlite_database.h"
#include "adapters/store/fetched_rows.h"
#include "adapters/store/store_failure.h"
#include "adapters/store/store_file_check.h"

namespace orv {
namespace {

bool isTruth(const Value& value) {
    const auto* whole = std::get_if<std::int64_t>(&value.content());
    const auto* broken = std::get_if<double>(&value.content());
    return (whole != nullptr && *whole != 0) || (broken != nullptr && *broken != 0.0);
}

bool isNumber(const Value& value) {
    return std::holds_alternative<std::int64_t>(value.content()) || std::holds_alternative<double>(value.content());
}

struct Columns {
    explicit Columns(const SqliteStatement& statement) {
        for (int column = 0; column < statement.columnCount(); ++column) {
            names.push_back(statement.columnName(column));
            isFlag.push_back(statement.isFlag(column));
        }
    }

    std::vector<std::string> names;
    std::vector<bool> isFlag;
};

RecordsetPtr fetchAll(SqliteStatement& statement) {
    // The columns are asked for behind the first step: it may have compiled the statement anew.
    bool hasRow = statement.step();
    const Columns columns(statement);
    auto rows = std::make_unique<FetchedRows>(columns.names);
    for (; hasRow; hasRow = statement.step()) {
        for (int column = 0; const bool isFlag : columns.isFlag) {
            Value value = statement.value(column++);
            rows->add(isFlag && isNumber(value) ? Value(isTruth(value)) : std::move(value));
        }
    }
    return rows;
}

void bindAll(SqliteStatement& statement, const Values& parameters) {
    for (int place = 1; const Value& parameter : parameters) {
        statement.bind(place++, parameter);
    }
}

class SqliteStore : public StoreConnection {
public:
    SqliteStore(const std::string& nativePath, StoreAccess access, std::chrono::milliseconds busyWait)
        : database_(nativePath, access, busyWait) {
        database_.refuseSettings();
    }

    RecordsetPtr select(const std::string& sql, const Values& parameters) override {
        SqliteStatement statement(database_, quoteLeftCalls(sql));
        if (!statement.isSelect()) {
            refuse(kNoSelect);
        }
        bindAll(statement, parameters);
        return fetchAll(statement);
    }

    std::int32_t change(const std::string& sql, const Values& parameters) override {
        SqliteStatement statement(database_, quoteLeftCalls(sql));
        if (!statement.isChange()) {
            refuse(kNoChange);
        }
        bindAll(statement, parameters);
        return statement.run();
    }

    bool inTransaction() const override { return database_.inTransaction(); }
    void begin() override { SqliteStatement(database_, "BEGIN IMMEDIATE").step(); }
    void beginSnapshot() override {
        SqliteStatement(database_, "BEGIN").step();
        SqliteStatement(database_, "SELECT 1 FROM sqlite_schema LIMIT 1").step();  // the first read fixes what is seen
    }
    void commit() override { SqliteStatement(database_, "COMMIT").step(); }
    void rollBack() override { database_.rollBack(); }

    std::vector<std::string> columns(const std::string& table) override {
        return firstTexts(select("SELECT name FROM pragma_table_info($1) ORDER BY cid", {table}));
    }

    std::vector<std::string> keyColumns(const std::string& table) override {
        return firstTexts(select("SELECT name FROM pragma_table_info($1) WHERE pk > 0 ORDER BY pk", {table}));
    }

    void runScript(const std::string& sql) override { database_.runScript(sql); }

    std::vector<std::string> damages() override {
        std::vector<std::string> found = firstTexts(select("SELECT integrity_check FROM pragma_integrity_check", {}));
        std::erase(found, "ok");
        return found;
    }

private:
    SqliteDatabase database_;
};

}  // namespace

StoreOpener sqliteStore(std::chrono::milliseconds busyWait) {
    return [busyWait](const std::string& nativePath, StoreAccess access) {
        requireStoreKind(nativePath, StoreKind::Embedded);
        return std::make_unique<SqliteStore>(nativePath, access, busyWait);
    };
}

}  // namespace orv
