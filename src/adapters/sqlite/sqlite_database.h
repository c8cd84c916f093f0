#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "adapters/store/store_connection.h"
#include "platform/value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace orv {

class GuardedVfs;

/// Limits of time and size for a store.
struct SqliteLimits {
    /// For a store that another process has locked.
    std::chrono::milliseconds busy{5000};
    /// For one statement, because a view or a trigger of the store can be endless.
    std::chrono::milliseconds statement{10000};
    /// For a script, and for a statement that reads every page of the store.
    std::chrono::milliseconds check{600000};
    /// Bytes of one answer.
    std::size_t answer = std::size_t{64} << 20U;
};

/// The state that the engine's callbacks use.
struct CallState {
    using Clock = std::chrono::steady_clock;

    std::chrono::milliseconds busy;
    Clock::time_point waitingSince{};
    Clock::time_point deadline = Clock::time_point::max();
    bool isChange = false;   // the statement in work
    std::string table = {};  // that it changes
};

/// One open database file. Every failure is a StoreFailure.
/// Commits are fully durable: with a rollback journal, and with the file, the journal and the folder flushed. A file
/// that another program has switched to write-ahead logging keeps that mode.
class SqliteDatabase {
public:
    /// Opens an existing database (or creates an empty one) and reads the schema. Rolls back the changes that a killed
    /// writer has left in its journal. A read-only file is opened too, and each change then fails.
    /// Failure "DBFILE10" if the journal names other files, which the engine would delete, or is a second name of one.
    SqliteDatabase(const std::string& nativePath, StoreAccess access, const SqliteLimits& limits);
    ~SqliteDatabase();

    /// From now on a statement must not change settings or access another file, and a change must not also read other
    /// rows. Otherwise a value that ends its literal could fetch another company's data.
    void refuseSettings();
    /// Starts the time limit of the next statement.
    void allow(std::chrono::milliseconds time) const;
    /// Sets whether the next statement must be one that changes the store.
    void expectChange(bool isChange) const;
    bool inTransaction() const;
    /// Rolls back an open transaction. Fails only if it is still open afterwards. If a failing disk prevents the
    /// restoring of some pages, they remain in the journal, and the next opening restores them.
    void rollBack();
    void runScript(const std::string& sql);
    /// Replaces the whole content of `target` by the current content of this database, all or nothing.
    void copyTo(const SqliteDatabase& target) const;
    /// Removes triggers, views and virtual tables from the schema. For a file that no other process has open.
    void dropPrograms();
    const SqliteLimits& limits() const noexcept { return limits_; }
    sqlite3* handle() const noexcept { return handle_.get(); }

private:
    struct Closer {
        void operator()(sqlite3* handle) const noexcept;
    };
    void open(const std::string& nativePath, StoreAccess access);
    void harden() const;

    SqliteLimits limits_;
    std::unique_ptr<CallState> state_;  // the engine holds the addresses of both
    std::unique_ptr<GuardedVfs> vfs_;
    std::unique_ptr<sqlite3, Closer> handle_;
};

/// One statement of an open database, which must outlive it.
class SqliteStatement {
public:
    /// Blanks and one semicolon can follow the statement. Any other text after it is rejected, and so is a text without
    /// a statement or with a NUL. Nothing of a rejected text is run.
    SqliteStatement(const SqliteDatabase& database, const std::string& sql);

    /// Sets the parameter at `place`, counted from 1. The value is a text, a number, a boolean or null.
    void bind(int place, const Value& value);
    /// Moves to the next row. False after the last one.
    bool step();
    /// Runs a change to its end. Returns the number of rows that it inserted, deleted or matched.
    std::int32_t run();

    /// True if it returns rows and changes nothing.
    bool isSelect() const;
    /// True if it returns no rows and changes the store.
    bool isChange() const;

    int columnCount() const;
    std::string columnName(int column) const;
    /// True if the column was declared as a boolean.
    bool isFlag(int column) const;
    /// Returns a value of the current row. A boolean is returned as a number, a blob as its bytes.
    Value value(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };
    sqlite3* database_;
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

}  // namespace orv
