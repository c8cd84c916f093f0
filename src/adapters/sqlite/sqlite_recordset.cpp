#include "adapters/sqlite/sqlite_recordset.h"

#include <algorithm>
#include <string_view>

#include "adapters/sqlite/ascii_fold.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr std::string_view kFirstTable = "A.";

bool isTruth(const Value& value) {
    const auto* whole = std::get_if<std::int64_t>(&value.content());
    const auto* broken = std::get_if<double>(&value.content());
    return (whole != nullptr && *whole != 0) || (broken != nullptr && *broken != 0.0);
}

bool isNumber(const Value& value) {
    return std::holds_alternative<std::int64_t>(value.content()) || std::holds_alternative<double>(value.content());
}

}  // namespace

SqliteRecordset::SqliteRecordset(SqliteStatement& statement) {
    // The columns are asked for behind the first step: it may have compiled the statement anew.
    bool hasRow = statement.step();
    describe(statement);
    for (; hasRow; hasRow = statement.step()) {
        fetchRow(statement);
    }
}

void SqliteRecordset::describe(const SqliteStatement& statement) {
    for (int column = 0; column < statement.columnCount(); ++column) {
        columns_.push_back({statement.columnName(column), statement.isFlag(column)});
    }
}

void SqliteRecordset::fetchRow(const SqliteStatement& statement) {
    for (int column = 0; const Column& described : columns_) {
        const Value& value = cells_.emplace_back(statement.value(column++));
        if (described.isFlag && isNumber(value)) {
            cells_.back() = isTruth(value);
        }
    }
    ++rows_;
}

std::int32_t SqliteRecordset::RecordCount() const { return static_cast<std::int32_t>(rows_); }

bool SqliteRecordset::Eof() const { return cursor_ == rows_; }

void SqliteRecordset::MoveFirst() { cursor_ = 0; }

void SqliteRecordset::MoveNext() {
    if (Eof()) {
        throw RunTimeError(Failure::InvalidCall, "最後の行より先へは進めません。");
    }
    ++cursor_;
}

void SqliteRecordset::MoveLast() { cursor_ = rows_ == 0 ? 0 : rows_ - 1; }

Value SqliteRecordset::Fields(const std::string& name) const { return Fields(static_cast<int>(columnOf(name))); }

Value SqliteRecordset::Fields(int index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= columns_.size()) {
        throw RunTimeError(Failure::SubscriptOutOfRange);
    }
    if (Eof()) {
        throw RunTimeError(Failure::InvalidCall, "読み出す行がありません。");
    }
    return cells_[cursor_ * columns_.size() + static_cast<std::size_t>(index)];
}

std::size_t SqliteRecordset::columnOf(const std::string& name) const {
    std::string_view wanted = name;
    const auto isWanted = [&](const Column& column) { return equalWithoutCase(column.name, wanted); };
    const bool qualified = equalWithoutCase(wanted.substr(0, kFirstTable.size()), kFirstTable);
    if (qualified) {
        wanted.remove_prefix(kFirstTable.size());
    }
    const auto found = std::ranges::find_if(columns_, isWanted);
    const bool isShared = std::ranges::count_if(columns_, isWanted) > 1;
    if (found == columns_.end() || (qualified && !isShared)) {
        throw RunTimeError(Failure::SubscriptOutOfRange, "「" + name + "」という項目はありません。");
    }
    return static_cast<std::size_t>(found - columns_.begin());
}

}  // namespace orv
