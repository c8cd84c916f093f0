#include "table_copy.h"

#include <algorithm>
#include <iomanip>
#include <iterator>
#include <sstream>

#include "platform/ascii.h"

namespace orv {
namespace {

std::string joined(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names) {
        list += (list.empty() ? "" : ", ") + name;
    }
    return list;
}

/// Returns a row as a text; different rows have different texts.
std::string formatLine(const Values& row) {
    std::string line;
    for (const Value& value : row) {
        const std::string text = value.isNull() ? "" : toText(value);
        line += std::to_string(value.content().index()) + ":" + std::to_string(text.size()) + ":" + text;
    }
    return line;
}

std::vector<Values> readRows(StoreConnection& store, const std::string& table,
                             const std::vector<std::string>& columns) {
    const RecordsetPtr found = store.select("SELECT " + joined(columns) + " FROM " + table, {});
    std::vector<Values> rows;
    for (; !found->Eof(); found->MoveNext()) {
        Values& row = rows.emplace_back();
        for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
            row.push_back(found->Fields(column));
        }
    }
    return rows;
}

/// Returns the rows as texts, sorted, because two engines can return different orders.
std::vector<std::string> formatLines(const std::vector<Values>& rows) {
    std::vector<std::string> lines;
    std::ranges::transform(rows, std::back_inserter(lines), formatLine);
    std::ranges::sort(lines);
    return lines;
}

std::string computeChecksum(const std::vector<std::string>& lines) {
    std::uint64_t sum = 14695981039346656037U;  // FNV-1a
    for (const std::string& line : lines) {
        for (const char c : line) {
            sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211U;
        }
    }
    std::ostringstream digits;
    digits << std::hex << std::setw(16) << std::setfill('0') << sum;
    return digits.str();
}

/// Returns all columns of the source; the target must have them too.
std::vector<std::string> sharedColumns(StoreConnection& from, StoreConnection& to, const std::string& table) {
    const std::vector<std::string> there = to.columns(table);
    std::vector<std::string> here = from.columns(table);
    if (here.empty() || there.empty()) {
        throw KeeperFailure(table + ": no such table in the " +
                            (here.empty() ? "source" : "target, which create makes"));
    }
    for (const std::string& column : here) {
        if (std::ranges::none_of(there, [&](const auto& name) { return equalWithoutCase(name, column); })) {
            throw KeeperFailure(table + ": the target has no column " + column);
        }
    }
    return here;
}

/// Reads a snapshot before anything is written, so that a slow target does not block the source.
std::vector<WholeTable> readAll(StoreConnection& from, StoreConnection& to) {
    std::vector<WholeTable> tables;
    from.beginSnapshot();
    for (const char* name : kOfficeTables) {
        std::vector<std::string> columns = sharedColumns(from, to, name);
        std::vector<Values> rows = readRows(from, name, columns);
        tables.push_back({name, std::move(columns), std::move(rows)});
    }
    from.rollBack();
    return tables;
}

CopiedTable write(const WholeTable& table, StoreConnection& to) {
    std::string places;
    for (std::size_t place = 1; place <= table.columns.size(); ++place) {
        places += (place == 1 ? "$" : ", $") + std::to_string(place);
    }
    const std::string insert = "INSERT INTO " + table.name + " (" + joined(table.columns) + ") VALUES (" + places + ")";
    to.change("DELETE FROM " + table.name, {});
    for (const Values& row : table.rows) {
        to.change(insert, row);
    }
    const std::vector<std::string> lines = formatLines(table.rows);
    if (formatLines(readRows(to, table.name, table.columns)) != lines) {
        throw KeeperFailure(table.name + ": the copy differs from the source");
    }
    return {table.name, table.rows.size(), computeChecksum(lines)};
}

}  // namespace

std::function<void(const CopiedTable&)> makeReporter(const Options& options, StoreReport& report) {
    return [&options, &report](const CopiedTable& table) {
        reportProgress(options, table.name + ": " + std::to_string(table.rows) + " rows");
        report.facts["tables"].push_back({{"name", table.name}, {"rows", table.rows}, {"checksum", table.checksum}});
        report.say(table.name + " " + std::to_string(table.rows) + " " + table.checksum);
    };
}

void copyTables(StoreConnection& from, StoreConnection& to, const std::function<void(const CopiedTable&)>& onCopied) {
    writeTables(readAll(from, to), to, onCopied);
}

void writeTables(const std::vector<WholeTable>& tables, StoreConnection& to,
                 const std::function<void(const CopiedTable&)>& onCopied) {
    to.begin();
    for (const WholeTable& table : tables) {
        onCopied(write(table, to));
    }
    to.commit();
}

}  // namespace orv
