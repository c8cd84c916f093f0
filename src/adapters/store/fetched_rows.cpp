#include "adapters/store/fetched_rows.h"

#include <algorithm>
#include <string_view>

#include "platform/ascii.h"
#include "platform/run_time_error.h"

namespace orv {
namespace {

constexpr std::string_view kFirstTable = "A.";

}  // namespace

std::int32_t FetchedRows::RecordCount() const { return static_cast<std::int32_t>(rows()); }

bool FetchedRows::Eof() const { return cursor_ == rows(); }

void FetchedRows::MoveFirst() { cursor_ = 0; }

void FetchedRows::MoveNext() {
    if (Eof()) {
        throw RunTimeError(Failure::InvalidCall, "最後の行より先へは進めません。");
    }
    ++cursor_;
}

void FetchedRows::MoveLast() { cursor_ = rows() == 0 ? 0 : rows() - 1; }

Value FetchedRows::Fields(const std::string& name) const {
    const auto column = findColumn(name);
    if (!column) {
        throw RunTimeError(Failure::SubscriptOutOfRange, "「" + name + "」という項目はありません。");
    }
    return Fields(static_cast<int>(*column));
}

Value FetchedRows::Fields(int index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= columns_.size()) {
        throw RunTimeError(Failure::SubscriptOutOfRange);
    }
    if (Eof()) {
        throw RunTimeError(Failure::InvalidCall, "読み出す行がありません。");
    }
    return cells_[cursor_ * columns_.size() + static_cast<std::size_t>(index)];
}

std::optional<std::size_t> FetchedRows::findColumn(const std::string& name) const {
    std::string_view wanted = name;
    const auto isWanted = [&](const std::string& column) { return equalWithoutCase(column, wanted); };
    const bool qualified = equalWithoutCase(wanted.substr(0, kFirstTable.size()), kFirstTable);
    if (qualified) {
        wanted.remove_prefix(kFirstTable.size());
    }
    const auto found = std::ranges::find_if(columns_, isWanted);
    const bool isShared = std::ranges::count_if(columns_, isWanted) > 1;
    if (found == columns_.end() || (qualified && !isShared)) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - columns_.begin());
}

std::vector<std::string> firstTexts(const RecordsetPtr& rows) {
    std::vector<std::string> texts;
    for (; !rows->Eof(); rows->MoveNext()) {
        texts.push_back(toText(rows->Fields(0)));
    }
    return texts;
}

}  // namespace orv
