#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/value.h"

namespace orv {

struct MemoryTable {
    struct Column {
        std::string name;
        bool isFlag = false;
        bool isKey = false;
    };
    std::vector<Column> columns;
    std::vector<Values> rows;
};

/// Tables by their names in upper case.
using MemoryTables = std::map<std::string, MemoryTable>;

struct MemoryResult {
    bool isSelect = false;
    std::vector<std::string> columns;
    std::vector<Values> rows;
    /// The number of rows that a change inserted, deleted or matched.
    std::int32_t changed = 0;
};

/// Returns the table with that name, or one without columns.
MemoryTable findTable(const MemoryTables& tables, const std::string& name);

/// Runs one statement of the forms that the system and its tests use. `$1` is the first parameter. Throws a
/// StoreFailure for any other form, an unknown name or a duplicate key. The tables can then be partly changed.
MemoryResult runStatement(MemoryTables& tables, const std::vector<std::string>& statement, const Values& parameters);

}  // namespace orv
