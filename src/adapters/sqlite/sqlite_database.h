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

/// A wait for a store that another process holds.
struct Waiting {
    std::chrono::milliseconds longest;
    std::chrono::steady_clock::time_point since{};
};

/// One open database file. Every failure is a StoreFailure.
/// Commits are fully durable: a rollback journal, the file, the journal and the folder flushed. A file that another
/// program has turned to write-ahead logging is used as it is and stays so.
class SqliteDatabase {
public:
    /// Opens an existing database (or makes an empty one), rolls back what a killed writer left in its journal, and
    /// reads its schema. `busyWait`: how long a store that another process holds is waited for, here and in every
    /// statement. A file that cannot be written opens all the same; each change then fails.
    SqliteDatabase(const std::string& nativePath, StoreAccess access, std::chrono::milliseconds busyWait);

    /// From now on no statement may change settings or reach for another file.
    void refuseSettings();
    bool inTransaction() const;
    /// Ends the transaction, if one is open; a failure only where it is still open then. What a failing disk keeps from
    /// being put back stays in the journal, and the next opening puts it back.
    void rollBack();
    void runScript(const std::string& sql);
    /// Puts everything that is in this database, as it is now, in the place of what `target` holds: all or nothing.
    void copyTo(const SqliteDatabase& target) const;
    sqlite3* handle() const noexcept { return handle_.get(); }

private:
    struct Closer {
        void operator()(sqlite3* handle) const noexcept;
    };
    std::unique_ptr<Waiting> waiting_;  // the engine holds its address
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
