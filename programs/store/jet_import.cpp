#include "jet_import.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>

#include "adapters/text/cp932.h"
#include "jet_value.h"
#include "office_schema.h"
#include "platform/ascii.h"

namespace orv {
namespace {

/// A file must contain these three tables, because a company needs them all.
constexpr std::size_t kCompanyTables = 3;
/// Codes that only this system's lists have. A file without them gets running numbers.
constexpr auto kNumbered = std::to_array<std::string_view>({"ITEM_CODE", "TIKU_CODE"});
constexpr int kCodeLength = 4;

class TableImport {
public:
    TableImport(const char* name, std::vector<OfficeColumn> wanted, const JetFile& file, const Options& options,
                StoreReport& report)
        : name_(name),
          wanted_(std::move(wanted)),
          values_(file.version, codePage_),
          options_(options),
          report_(report) {
        const auto isIt = [&](const JetTable& table) { return equalWithoutCase(table.name, name); };
        const auto found = std::ranges::find_if(file.tables, isIt);
        source_ = found == file.tables.end() ? nullptr : &*found;
    }

    /// Returns nothing for a missing table, or one without the columns that its rows need.
    std::vector<WholeTable> run() {
        if (source_ == nullptr) {
            addNote("", "no such table; the store keeps its rows");
            return {};
        }
        requireWhole();
        if (!matchColumns()) {
            return {};
        }
        WholeTable table{name_, {}, {}};
        for (const Match& match : matches_) {
            table.columns.push_back(match.column.name);
        }
        for (std::size_t row = 0; row < source_->rows.size(); ++row) {
            importRow(row, table.rows);
        }
        const std::size_t refused = source_->rows.size() - table.rows.size();
        report_.facts["found"].push_back({{"name", name_}, {"rows", source_->rows.size()}, {"refused", refused}});
        report_.say(name_ + ": " + std::to_string(source_->rows.size()) + " rows, " + std::to_string(refused) +
                    " refused");
        return {std::move(table)};
    }

private:
    struct Match {
        OfficeColumn column;
        const JetColumn* from;  // nullptr: a running number
        std::size_t place;
    };

    struct TakenRow {
        Values values;
        std::string key;
        std::vector<std::string> notes;
        std::string refused;  // the reason for leaving the row out, or empty
    };

    void addNote(const std::string& row, const std::string& what) {
        report_.ending = Ending::Findings;
        report_.facts["findings"].push_back({{"table", name_}, {"row", row}, {"what", what}});
        report_.say(name_ + (row.empty() ? "" : " " + row) + ": " + what);
    }

    void requireWhole() {
        const std::size_t held = source_->rows.size();
        if (source_->broken == 0 && held >= source_->statedRows) {
            return;
        }
        const std::string what = "damaged: " + std::to_string(held) + " of " + std::to_string(source_->statedRows) +
                                 " rows can be read, " + std::to_string(source_->broken) +
                                 " values, rows or pages can't";
        if (!options_.salvage) {
            throw KeeperFailure(name_ + ": " + what + "; --salvage imports the readable part");
        }
        addNote("", what);
    }

    bool matchColumns() {
        for (const OfficeColumn& column : wanted_) {
            const auto isIt = [&](const JetColumn& there) { return equalWithoutCase(there.name, column.name); };
            const auto found = std::ranges::find_if(source_->columns, isIt);
            if (found != source_->columns.end()) {
                matches_.push_back({column, &*found, static_cast<std::size_t>(found - source_->columns.begin())});
            } else if (std::ranges::find(kNumbered, column.name) != kNumbered.end()) {
                matches_.push_back({column, nullptr, 0});
                addNote("", "no column " + column.name + "; the rows are numbered");
            } else if (column.isRequired) {
                addNote("", "no column " + column.name + ", which each row needs; the store keeps its rows");
                return false;
            } else {
                addNote("", "no column " + column.name + "; left empty");
            }
        }
        reportUnknownColumns();
        return true;
    }

    void reportUnknownColumns() {
        for (const JetColumn& there : source_->columns) {
            const auto isIt = [&](const OfficeColumn& column) { return equalWithoutCase(column.name, there.name); };
            if (std::ranges::none_of(wanted_, isIt)) {
                addNote("", "the store has no column " + there.name + "; not imported");
            }
        }
    }

    void importRow(std::size_t number, std::vector<Values>& rows) {
        TakenRow row = rowAt(number);
        if (row.refused.empty() && !row.key.empty() && !keys_.insert(row.key).second) {
            row.refused = "its key exists already";
        }
        const std::string label = "row " + std::to_string(number + 1) + (row.key.empty() ? "" : " (" + row.key + ")");
        if (!row.refused.empty()) {
            addNote(label, "refused: " + row.refused);
            return;
        }
        for (const std::string& note : row.notes) {
            addNote(label, note);
        }
        rows.push_back(std::move(row.values));
    }

    TakenRow rowAt(std::size_t number) const {
        TakenRow row;
        for (const Match& match : matches_) {
            ConvertedValue converted = convertValue(match, number);
            if (match.column.isKey) {
                row.key += (row.key.empty() ? "" : "/") + (converted.value.isNull() ? "" : toText(converted.value));
            }
            if (row.refused.empty()) {
                row.refused = whyRefused(match.column, converted);
            }
            if (!converted.noted.empty()) {
                row.notes.push_back(match.column.name + " " + converted.noted);
            }
            row.values.push_back(std::move(converted.value));
        }
        return row;
    }

    ConvertedValue convertValue(const Match& match, std::size_t row) const {
        if (match.from != nullptr) {
            return values_.convert(source_->rows[row].at(match.place), match.from->type, match.column);
        }
        const std::string digits = std::to_string(row + 1);
        const std::size_t zeros = kCodeLength - std::min<std::size_t>(digits.size(), kCodeLength);
        return {.value = std::string(zeros, '0') + digits, .refused = {}, .noted = {}};
    }

    static std::string whyRefused(const OfficeColumn& column, ConvertedValue& converted) {
        if (!converted.refused.empty()) {
            return column.name + " " + converted.refused;
        }
        const bool isEmpty = converted.value.isNull() || (column.isKey && converted.value == Value(""));
        if (isEmpty && column.isRequired) {
            return column.name + " is empty";
        }
        if (converted.value.isNull() && column.kind == ColumnKind::Flag) {
            converted.value = false;
        }
        return {};
    }

    std::string name_;
    std::vector<OfficeColumn> wanted_;
    const JetTable* source_ = nullptr;
    const Cp932 codePage_;
    JetValues values_;
    const Options& options_;
    StoreReport& report_;
    std::vector<Match> matches_;
    std::set<std::string> keys_;
};

}  // namespace

std::vector<WholeTable> makeOfficeTables(const JetFile& file, const Options& options, StoreReport& report) {
    std::vector<WholeTable> tables;
    const std::vector<std::vector<OfficeColumn>> columns = officeColumns();
    for (std::size_t i = 0; i < kOfficeTables.size(); ++i) {
        std::vector<WholeTable> found = TableImport(kOfficeTables[i], columns[i], file, options, report).run();
        if (found.empty() && i < kCompanyTables) {
            throw KeeperFailure(std::string(kOfficeTables[i]) + ": not in the file, or without USER_ID");
        }
        std::ranges::move(found, std::back_inserter(tables));
    }
    return tables;
}

}  // namespace orv
