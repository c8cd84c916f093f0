#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orv {

enum class ColumnKind : std::uint8_t { Text, Whole, Flag };

/// A column as declared in the statements that create a store.
struct OfficeColumn {
    std::string name;
    ColumnKind kind = ColumnKind::Text;
    bool isRequired = false;  // has no default, so a row must contain a value
    bool isKey = false;
    std::size_t longest = 0;  // bytes of the code page that the field accepts; 0: no limit
    std::string definition;   // name, type and constraints
};

/// The columns in which a table of a store and of the schema differ.
struct ColumnDifferences {
    std::vector<OfficeColumn> missing;  // from the store
    std::vector<std::string> foreign;   // in the store only
};

/// Returns the columns of the office's tables, in the order of `kOfficeTables`.
std::vector<std::vector<OfficeColumn>> officeColumns();

/// Compares the columns of the schema with those of a store.
ColumnDifferences compareColumns(const std::vector<OfficeColumn>& schema, const std::vector<std::string>& store);

/// True for the statement that makes a table of the office, whatever its remarks, its blanks and the order of its
/// columns are.
bool isOfficeDefinition(const std::string& sql);

}  // namespace orv
