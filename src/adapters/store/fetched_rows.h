#pragma once

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "platform/suite/db_service.h"

namespace orv {

/// The rows of a select, fetched whole: their number is exact, and no lock on the store outlives the call that read
/// them.
class FetchedRows : public Recordset {
public:
    explicit FetchedRows(std::vector<std::string> columns) : columns_(std::move(columns)) {}

    /// The next value: from left to right, row after row.
    void add(Value value) { cells_.push_back(std::move(value)); }

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
    std::size_t rows() const { return columns_.empty() ? 0 : cells_.size() / columns_.size(); }
    std::size_t columnOf(const std::string& name) const;

    std::vector<std::string> columns_;
    std::deque<Value> cells_;  // it grows without moving what it holds
    std::size_t cursor_ = 0;
};

/// The first field of every row, as text.
std::vector<std::string> firstTexts(const RecordsetPtr& rows);

}  // namespace orv
