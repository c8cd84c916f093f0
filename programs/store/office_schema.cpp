#include "office_schema.h"

#include <algorithm>
#include <sstream>

#include "platform/ascii.h"
#include "store_sql.h"
#include "table_copy.h"

namespace orv {
namespace {

/// Parses "    NAME  TYPE NOT NULL PRIMARY KEY, -- 9: a remark".
OfficeColumn parseColumn(const std::string& line) {
    OfficeColumn column;
    std::string type;
    std::istringstream(line) >> column.name >> type;
    const auto says = [&](const char* words) { return line.find(words) != std::string::npos; };
    column.kind = type.starts_with("INTEGER")   ? ColumnKind::Whole
                  : type.starts_with("BOOLEAN") ? ColumnKind::Flag
                                                : ColumnKind::Text;
    column.isKey = says("PRIMARY KEY");
    column.isRequired = says("NOT NULL") && !says("DEFAULT");
    if (const std::size_t remark = line.find("-- "); remark != std::string::npos && column.kind == ColumnKind::Text) {
        std::istringstream(line.substr(remark + 3)) >> column.longest;
    }
    column.definition = line.substr(0, line.find("--"));
    column.definition.erase(column.definition.find_last_not_of(" ,") + 1);
    return column;
}

/// Without the semicolon.
std::string findDefinition(const std::string& table) {
    const std::string_view rest = kSchemaSql.substr(kSchemaSql.find("CREATE TABLE " + table + " ("));
    return std::string(rest.substr(0, rest.find(";\n")));
}

/// The statement without remarks and blanks, to compare it with one of the schema, which has no quoted text.
std::string compact(const std::string& sql) {
    std::istringstream lines(sql);
    std::string all;
    for (std::string line; std::getline(lines, line);) {
        all += line.substr(0, line.find("--"));
    }
    std::erase_if(all, [](char c) { return c == ' ' || c == '\t' || c == '\r'; });
    return all;
}

/// Splits a compact definition into its start, its columns and constraints, and its end.
std::vector<std::string> splitDefinition(const std::string& sql) {
    std::vector<std::string> parts(1);
    int depth = 0;
    for (const char c : compact(sql)) {
        const bool opens = c == '(' && depth++ == 0;
        const bool closes = c == ')' && --depth == 0;
        const bool separates = c == ',' && depth == 1;
        if (opens || closes || separates) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

std::vector<OfficeColumn> listColumns(const std::string& table) {
    std::istringstream lines(findDefinition(table));
    std::vector<OfficeColumn> columns;
    std::string line;
    for (std::getline(lines, line); std::getline(lines, line) && line != ")";) {
        if (line.starts_with("    PRIMARY KEY (")) {
            for (OfficeColumn& column : columns) {
                column.isKey = column.isKey || line.find(column.name) != std::string::npos;
            }
        } else {
            columns.push_back(parseColumn(line));
        }
    }
    return columns;
}

}  // namespace

std::vector<std::vector<OfficeColumn>> officeColumns() {
    std::vector<std::vector<OfficeColumn>> all;
    for (const char* table : kOfficeTables) {
        all.push_back(listColumns(table));
    }
    return all;
}

ColumnDifferences compareColumns(const std::vector<OfficeColumn>& schema, const std::vector<std::string>& store) {
    const auto isSame = [](const OfficeColumn& column, const std::string& name) {
        return equalWithoutCase(column.name, name);
    };
    ColumnDifferences differences;
    std::ranges::copy_if(schema, std::back_inserter(differences.missing), [&](const OfficeColumn& column) {
        return std::ranges::none_of(store, [&](const std::string& name) { return isSame(column, name); });
    });
    std::ranges::copy_if(store, std::back_inserter(differences.foreign), [&](const std::string& name) {
        return std::ranges::none_of(schema, [&](const OfficeColumn& column) { return isSame(column, name); });
    });
    return differences;
}

bool isOfficeDefinition(const std::string& sql) {
    return std::ranges::any_of(kOfficeTables, [&](const char* table) {
        return std::ranges::is_permutation(splitDefinition(findDefinition(table)), splitDefinition(sql),
                                           equalWithoutCase);
    });
}

}  // namespace orv
