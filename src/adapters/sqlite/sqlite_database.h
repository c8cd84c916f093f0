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

/// How much of a store is waited for and taken.
struct SqliteLimits {
    /// For a store that another process holds.
    std::chrono::milliseconds busy{5000};
    /// For one statement: a view or a trigger of the store can be an endless one.
    std::chrono::milliseconds statement{10000};
    /// The same for a script, and for a statement that reads every page of the store.
    std::chrono::milliseconds check{600000};
    /// Bytes of one answer.
    std::size_t answer = std::size_t{64} << 20U;
};

/// What the engine's callbacks work on.
struct CallState {
    using Clock = std::chrono::steady_clock;

    std::chrono::milliseconds busy;
    Clock::time_point waitingSince{};
    Clock::time_point deadline = Clock::time_point::max();
    bool isChange = false;   // the statement in work
    std::string table = {};  // that it changes
};

/// One open database file. Every failure is a StoreFailure.
/// Commits are fully durable: a rollback journal, the file, the journal and the folder flushed. A file that another
/// program has turned to write-ahead logging is used as it is and stays so.
class SqliteDatabase {
public:
    /// Opens an existing database (or makes an empty one), rolls back what a killed writer left in its journal, and
    /// reads its schema. A file that cannot be written opens all the same; each change then fails.
    /// Failure "DBFILE10": the journal names other files, which the engine would delete, or is a second name of one.
    SqliteDatabase(const std::string& nativePath, StoreAccess access, const SqliteLimits& limits);
    ~SqliteDatabase();

    /// From now on no statement may change settings or reach for another file, and no change may also read other
    /// rows: a value that ends its literal could fetch another company's data.
    void refuseSettings();
    /// Starts the time that the next statement has.
    void allow(std::chrono::milliseconds time) const;
    /// Tells whether the next statement is to be one that changes the store.
    void expectChange(bool isChange) const;
    bool inTransaction() const;
    /// Ends the transaction, if one is open; a failure only where it is still open then. What a failing disk keeps from
    /// being put back stays in the journal, and the next opening puts it back.
    void rollBack();
    void runScript(const std::string& sql);
    /// Puts everything that is in this database, as it is now, in the place of what `target` holds: all or nothing.
    void copyTo(const SqliteDatabase& target) const;
    /// Takes what has no rows of its own out of the schema: triggers, views and virtual tables. For a file that nobody
    /// else has open.
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
    /// Blanks and one semicolon may stand behind the statement. Any other text there is refused, and so is a text with
    /// no statement or with a NUL in it: nothing of it is run.
    SqliteStatement(const SqliteDatabase& database, const std::string& sql);

    /// Gives the parameter at `place`, from 1, its value: a text, a number, a boolean or null.
    void bind(int place, const Value& value);
    /// Goes on to the next row; false behind the last.
    bool step();
    /// Runs a change to its end. The rows that it inserted, deleted or matched.
    std::int32_t run();

    /// Yields rows and changes nothing.
    bool isSelect() const;
    /// Yields no rows and changes the store.
    bool isChange() const;

    int columnCount() const;
    std::string columnName(int column) const;
    /// Whether the column was declared as a boolean.
    bool isFlag(int column) const;
    /// The value of the row under the cursor. A boolean comes back as a number here, a blob as its bytes.
    Value value(int column) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const noexcept;
    };
    sqlite3* database_;
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

}  // namespace orv
