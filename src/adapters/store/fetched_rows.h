#pragma once

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/suite/db_service.h"

namespace orv {

/// All rows of a select, fetched at once. Their number is exact, and no lock on the store remains after the call that
/// read them.
class FetchedRows : public Recordset {
public:
    explicit FetchedRows(std::vector<std::string> columns) : columns_(std::move(columns)) {}

    /// Adds the next value: from left to right, row after row.
    void add(Value value) { cells_.push_back(std::move(value)); }

    std::int32_t RecordCount() const override;
    bool Eof() const override;
    /// Without rows, this and `MoveLast` stay at the end.
    void MoveFirst() override;
    /// Throws failure 5 at the end.
    void MoveNext() override;
    void MoveLast() override;
    bool Has(const std::string& name) const override { return findColumn(name).has_value(); }
    /// Throws failure 9 for an unknown name or index, 5 at the end. If two columns share a name, it means the first of
    /// them, with or without "A." before it; other qualifiers are unknown.
    Value Fields(const std::string& name) const override;
    Value Fields(int index) const override;

private:
    std::size_t rows() const { return columns_.empty() ? 0 : cells_.size() / columns_.size(); }
    std::optional<std::size_t> findColumn(const std::string& name) const;

    std::vector<std::string> columns_;
    std::deque<Value> cells_;  // grows without moving its elements
    std::size_t cursor_ = 0;
};

/// Returns the first field of every row, as text.
std::vector<std::string> firstTexts(const RecordsetPtr& rows);

}  // namespace orv
