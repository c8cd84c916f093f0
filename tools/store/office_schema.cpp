#include "office_schema.h"

#include <sstream>

#include "store_sql.h"
#include "table_copy.h"

namespace orv {
namespace {

/// Parses "    NAME  TYPE NOT NULL PRIMARY KEY, -- 9: a remark".
OfficeColumn columnOf(const std::string& line) {
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
    return column;
}

std::vector<OfficeColumn> columnsOf(const std::string& table) {
    std::istringstream lines{std::string(kSchemaSql.substr(kSchemaSql.find("CREATE TABLE " + table + " (")))};
    std::vector<OfficeColumn> columns;
    std::string line;
    for (std::getline(lines, line); std::getline(lines, line) && line != ");";) {
        if (line.starts_with("    PRIMARY KEY (")) {
            for (OfficeColumn& column : columns) {
                column.isKey = column.isKey || line.find(column.name) != std::string::npos;
            }
        } else {
            columns.push_back(columnOf(line));
        }
    }
    return columns;
}

}  // namespace

std::vector<std::vector<OfficeColumn>> officeColumns() {
    std::vector<std::vector<OfficeColumn>> all;
    for (const char* table : kOfficeTables) {
        all.push_back(columnsOf(table));
    }
    return all;
}

}  // namespace orv
