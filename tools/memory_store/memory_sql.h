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

/// By their names in upper case.
using MemoryTables = std::map<std::string, MemoryTable>;

struct MemoryResult {
    bool isSelect = false;
    std::vector<std::string> columns;
    std::vector<Values> rows;
    /// The rows that a change inserted, deleted or matched.
    std::int32_t changed = 0;
};

/// The table of that name; one without columns if there is none.
MemoryTable tableOf(const MemoryTables& tables, const std::string& name);

/// A value as text; a flag is 1 or 0.
std::string plainText(const Value& value);

/// The statements of `sql`, each as its words, texts and signs.
std::vector<std::vector<std::string>> statementsOf(const std::string& sql);

/// Runs one statement of the forms that the system and its tests use. `$1` is the first parameter. Any other
/// form, an unknown name and a second row of one key are a StoreFailure. After a failure the tables may be half
/// changed.
MemoryResult runStatement(MemoryTables& tables, const std::vector<std::string>& statement, const Values& parameters);

}  // namespace orv
