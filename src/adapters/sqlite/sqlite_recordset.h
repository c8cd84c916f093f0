#pragma once

#include <deque>
#include <string>
#include <vector>

#include "adapters/sqlite/sqlite_database.h"
#include "platform/suite/db_service.h"

namespace orv {

/// The rows of a select, fetched whole: their number is exact, and no lock on the store outlives the call that read
/// them. A column declared as a boolean gives booleans, whatever number stands for true in the file.
class SqliteRecordset : public Recordset {
public:
    /// Runs the statement to its end.
    explicit SqliteRecordset(SqliteStatement& statement);

    std::int32_t RecordCount() const override;
    bool Eof() const override;
    /// On no rows this and `MoveLast` stay at the end.
    void MoveFirst() override;
    /// At the end already: failure 5.
    void MoveNext() override;
    void MoveLast() override;
    /// An unknown name or place is failure 9, a reading at the end failure 5. A name that two columns share means the
    /// first of them, with or without "A." before it; no other qualifier is known.
    Value Fields(const std::string& name) const override;
    Value Fields(int index) const override;

private:
    struct Column {
        std::string name;
        bool isFlag;
    };

    void describe(const SqliteStatement& statement);
    void fetchRow(const SqliteStatement& statement);
    std::size_t columnOf(const std::string& name) const;

    std::vector<Column> columns_;
    std::deque<Value> cells_;  // row after row; it grows without moving what it holds
    std::size_t rows_ = 0;
    std::size_t cursor_ = 0;
};

}  // namespace orv
