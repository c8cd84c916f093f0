#include "adapters/sqlite/sqlite_transmit_table.h"

#include <optional>
#include <string_view>

#include "adapters/sqlite/sqlite_database.h"
#include "adapters/sqlite/sqlite_failure.h"
#include "adapters/sqlite/sqlite_recordset.h"
#include "adapters/sqlite/store_file_check.h"

namespace orv {
namespace {

constexpr std::int32_t kEmbeddedType = 2;
constexpr std::int32_t kTableType = 1;
constexpr std::string_view kPasswordSign = ";pwd=";

/// An open file and what was made from it share this; closing either it or its workspace empties it for all.
using SharedDatabase = std::shared_ptr<std::optional<SqliteDatabase>>;

void require(bool condition, Failure failure) {
    if (!condition) {
        throw RunTimeError(failure);
    }
}

const SqliteDatabase& usable(const SharedDatabase& database) {
    require(database != nullptr && database->has_value(), Failure::ObjectNotSet);
    return **database;
}

std::string quoted(std::string_view name) {
    std::string text = "\"";
    for (const char c : name) {
        text += c == '"' ? "\"\"" : std::string(1, c);
    }
    return text + "\"";
}

std::vector<std::string> keyColumns(const SqliteDatabase& database, const std::string& table) {
    SqliteStatement statement(database, "SELECT name FROM pragma_table_info(?) WHERE pk > 0 ORDER BY pk");
    statement.bind(1, table);
    std::vector<std::string> names;
    while (statement.step()) {
        names.push_back(toText(statement.value(0)));
    }
    return names;
}

class Table : public TransmitRecordset {
public:
    Table(SharedDatabase database, const std::string& name)
        : database_(std::move(database)),
          select_("SELECT * FROM " + quoted(name)),
          keys_(keyColumns(usable(database_), name)) {
        SqliteStatement firstRow(usable(database_), select_ + " LIMIT 1");
        row_.emplace(firstRow);
        isEmpty_ = row_->Eof();
    }

    void Index(const std::string& name) override {
        usable(database_);
        require(name == "PrimaryKey" && !keys_.empty(), Failure::InvalidCall);
        hasIndex_ = true;
    }

    void Seek(const std::string& comparison, const Values& keys) override {
        usable(database_);
        require(hasIndex_ && comparison == "=" && keys.size() == keys_.size(), Failure::InvalidCall);
        SqliteStatement statement(usable(database_), select_ + whereKeysMatch());
        for (int place = 1; const Value& key : keys) {
            statement.bind(place++, key);
        }
        row_.emplace(statement);
        noMatch_ = row_->Eof();
    }

    bool Eof() const override {
        usable(database_);
        return isEmpty_;
    }

    bool NoMatch() const override {
        usable(database_);
        return noMatch_;
    }

    Value Fields(const std::string& name) const override {
        usable(database_);
        return row_->Fields(name);
    }

    void Close() override {
        usable(database_);
        database_.reset();
    }

private:
    std::string whereKeysMatch() const {
        std::string condition;
        for (const std::string& key : keys_) {
            condition += (condition.empty() ? " WHERE " : " AND ") + quoted(key) + " = ?";
        }
        return condition;
    }

    SharedDatabase database_;
    std::string select_;
    std::vector<std::string> keys_;
    std::optional<SqliteRecordset> row_;  // the current row, or none
    bool isEmpty_ = false;
    bool hasIndex_ = false;
    bool noMatch_ = false;
};

class Database : public TransmitDatabase {
public:
    explicit Database(SharedDatabase database) : database_(std::move(database)) {}
    ~Database() override { database_->reset(); }

    std::unique_ptr<TransmitRecordset> OpenRecordset(const std::string& table, std::int32_t type) override {
        usable(database_);
        require(type == kTableType, Failure::InvalidCall);
        return std::make_unique<Table>(database_, table);
    }

    void Close() override {
        usable(database_);
        database_->reset();
    }

private:
    SharedDatabase database_;
};

class Workspace : public TransmitWorkspace {
public:
    Workspace(const FileSystem& files, std::chrono::milliseconds busyWait) : files_(files), busyWait_(busyWait) {}
    ~Workspace() override { closeDatabases(); }

    std::unique_ptr<TransmitDatabase> OpenDatabase(const std::string& path, bool exclusive, bool readOnly,
                                                   const std::string& connect) override {
        require(isOpen_, Failure::ObjectNotSet);
        require(!exclusive && connect.starts_with(kPasswordSign), Failure::InvalidCall);
        const std::string native = files_.nativePath(path);
        checkStoreFile(native);
        auto database = std::make_shared<std::optional<SqliteDatabase>>();
        database->emplace(native, readOnly ? StoreAccess::ReadOnly : StoreAccess::ReadWrite, busyWait_);
        databases_.push_back(database);
        return std::make_unique<Database>(std::move(database));
    }

    void Close() override {
        require(isOpen_, Failure::ObjectNotSet);
        closeDatabases();
        isOpen_ = false;
    }

private:
    void closeDatabases() {
        for (const SharedDatabase& database : databases_) {
            database->reset();
        }
    }

    const FileSystem& files_;
    std::chrono::milliseconds busyWait_;
    std::vector<SharedDatabase> databases_;
    bool isOpen_ = true;
};

}  // namespace

std::unique_ptr<TransmitWorkspace> SqliteTransmitEngine::CreateWorkspace(const std::string&, const std::string&,
                                                                         const std::string&, std::int32_t type) {
    require(type == kEmbeddedType, Failure::InvalidCall);
    return std::make_unique<Workspace>(files_, busyWait_);
}

}  // namespace orv
