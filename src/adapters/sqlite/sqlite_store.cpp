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

constexpr const char* kObjects =
    "SELECT CASE WHEN type = 'table' AND coalesce(rootpage, 0) = 0 THEN 'virtual table' ELSE type END, name, CASE type "
    "WHEN 'table' THEN sql ELSE '' END"
    " FROM sqlite_schema WHERE NOT (type IN ('table', 'index') AND name LIKE 'sqlite~_%' ESCAPE '~') ORDER BY type, "
    "name";

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

std::size_t byteSize(const Value& value) {
    const auto* text = std::get_if<std::string>(&value.content());
    return sizeof(Value) + (text == nullptr ? 0 : text->size());
}

RecordsetPtr fetchAll(SqliteStatement& statement, std::size_t most) {
    // Reads the columns after the first step, which may have compiled the statement again.
    bool hasRow = statement.step();
    const Columns columns(statement);
    auto rows = std::make_unique<FetchedRows>(columns.names);
    for (; hasRow; hasRow = statement.step()) {
        for (int column = 0; const bool isFlag : columns.isFlag) {
            Value value = statement.value(column++);
            const std::size_t size = byteSize(value);
            if (size > most) {
                refuse(kAnswerTooLong);
            }
            most -= size;
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
    SqliteStore(const std::string& nativePath, StoreAccess access, const SqliteLimits& limits)
        : database_(nativePath, access, limits) {
        database_.refuseSettings();
    }

    RecordsetPtr select(const std::string& sql, const Values& parameters) override {
        return selectWithin(database_.limits().statement, sql, parameters);
    }

    std::int32_t change(const std::string& sql, const Values& parameters) override {
        expect(true, database_.limits().statement);
        SqliteStatement statement(database_, quoteLeftCalls(sql));
        if (!statement.isChange()) {
            refuse(kNoChange);
        }
        bindAll(statement, parameters);
        return statement.run();
    }

    bool inTransaction() const override { return database_.inTransaction(); }
    void begin() override { command("BEGIN IMMEDIATE"); }
    void beginSnapshot() override {
        command("BEGIN");
        command("SELECT 1 FROM sqlite_schema LIMIT 1");  // the first read fixes the snapshot
    }
    void commit() override { command("COMMIT"); }
    void rollBack() override { database_.rollBack(); }

    std::vector<std::string> columns(const std::string& table) override {
        return firstTexts(select("SELECT name FROM pragma_table_info($1) ORDER BY cid", {table}));
    }

    std::vector<std::string> keyColumns(const std::string& table) override {
        return firstTexts(select("SELECT name FROM pragma_table_info($1) WHERE pk > 0 ORDER BY pk", {table}));
    }

    void runScript(const std::string& sql) override { database_.runScript(sql); }

    std::vector<std::string> damages() override {
        const std::string sql = "SELECT integrity_check FROM pragma_integrity_check";
        std::vector<std::string> found = firstTexts(selectWithin(database_.limits().check, sql, {}));
        std::erase(found, "ok");
        return found;
    }

    std::vector<StoreObject> objects() override { return objectsIn(select(kObjects, {})); }

private:
    void expect(bool isChange, std::chrono::milliseconds time) const {
        database_.expectChange(isChange);
        database_.allow(time);
    }

    void command(const char* sql) const {
        expect(false, database_.limits().statement);
        SqliteStatement(database_, sql).step();
    }

    RecordsetPtr selectWithin(std::chrono::milliseconds time, const std::string& sql, const Values& parameters) const {
        expect(false, time);
        SqliteStatement statement(database_, quoteLeftCalls(sql));
        if (!statement.isSelect()) {
            refuse(kNoSelect);
        }
        bindAll(statement, parameters);
        return fetchAll(statement, database_.limits().answer);
    }

    SqliteDatabase database_;
};

}  // namespace

StoreOpener sqliteStore(const SqliteLimits& limits) {
    return [limits](const std::string& nativePath, StoreAccess access) {
        requireStoreKind(nativePath, StoreKind::Embedded);
        return std::make_unique<SqliteStore>(nativePath, access, limits);
    };
}

}  // namespace orv
