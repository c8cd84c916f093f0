#include "memory_store.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "adapters/store/fetched_rows.h"
#include "adapters/store/store_failure.h"
#include "memory_sql.h"
#include "sql_reader.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

constexpr StoreRefusal kMissing{"DBFILE01", Failure::FileNotFound, "データベースのファイルが見つかりません。"};

/// Returns the tables of the store with that file. Those of a copied file are copied at first use.
MemoryTables& openTables(const std::string& path) {
    static std::map<std::string, MemoryTables> all;
    if (!fs::exists(path)) {
        std::ofstream(path) << path;
        return all[path] = {};
    }
    std::ifstream file(path);
    const std::string name{std::istreambuf_iterator<char>(file), {}};
    return all.try_emplace(path, all[name]).first->second;
}

std::vector<std::string> oneStatement(const std::string& sql) {
    if (sql.find('\0') != std::string::npos) {
        refuse(kBadCharacter);
    }
    const auto statements = splitStatements(sql);
    if (statements.size() != 1) {
        refuse(statements.empty() ? kNoStatement : kManyStatements);
    }
    return statements.front();
}

/// A transaction works on a copy of the tables, which replaces the store's at the commit.
class MemoryStore : public StoreConnection {
public:
    explicit MemoryStore(MemoryTables& tables) : tables_(tables) {}

    RecordsetPtr select(const std::string& sql, const Values& parameters) override {
        MemoryTables copy = present();
        const MemoryResult result = runStatement(copy, oneStatement(sql), parameters);
        if (!result.isSelect) {
            refuse(kNoSelect);
        }
        auto rows = std::make_unique<FetchedRows>(result.columns);
        for (const Values& row : result.rows) {
            std::ranges::for_each(row, [&](const Value& value) { rows->add(value); });
        }
        return rows;
    }
    std::int32_t change(const std::string& sql, const Values& parameters) override {
        MemoryTables copy = present();
        const MemoryResult result = runStatement(copy, oneStatement(sql), parameters);
        if (result.isSelect) {
            refuse(kNoChange);
        }
        present() = std::move(copy);
        return result.changed;
    }

    bool inTransaction() const override { return own_.has_value(); }
    void begin() override { own_ = tables_; }
    void beginSnapshot() override { begin(); }
    void commit() override { tables_ = *std::exchange(own_, std::nullopt); }
    void rollBack() override { own_.reset(); }

    std::vector<std::string> columns(const std::string& table) override { return names(table, false); }
    std::vector<std::string> keyColumns(const std::string& table) override { return names(table, true); }

    void runScript(const std::string& sql) override {
        for (const auto& statement : splitStatements(sql)) {
            if (statement.size() > 1) {  // BEGIN and COMMIT
                runStatement(present(), statement, {});
            }
        }
    }
    std::vector<std::string> damages() override { return {}; }
    std::vector<StoreObject> objects() override { return {}; }

private:
    MemoryTables& present() { return own_ ? *own_ : tables_; }
    std::vector<std::string> names(const std::string& table, bool keysOnly) {
        std::vector<std::string> found;
        for (const MemoryTable::Column& column : findTable(present(), table).columns) {
            if (column.isKey || !keysOnly) {
                found.push_back(column.name);
            }
        }
        return found;
    }

    MemoryTables& tables_;
    std::optional<MemoryTables> own_;
};

std::string shown(const Value& value) { return value.isNull() ? "NULL" : plainText(value); }

}  // namespace

StoreOpener memoryStore() {
    return [](const std::string& nativePath, StoreAccess) {
        if (!fs::is_regular_file(nativePath)) {
            refuse(kMissing);
        }
        return std::make_unique<MemoryStore>(openTables(nativePath));
    };
}

void runInMemory(const std::string& path, const std::string& sql) { MemoryStore(openTables(path)).runScript(sql); }

std::vector<std::string> rowsInMemory(const std::string& path, const std::string& select) {
    std::vector<std::string> found;
    for (const Values& row : runStatement(openTables(path), oneStatement(select), {}).rows) {
        std::string& line = found.emplace_back();
        for (const Value& value : row) {
            line += (&value == &row.front() ? "" : "|") + shown(value);
        }
    }
    return found;
}

}  // namespace orv
