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
};

/// Returns the columns of the office's tables, in the order of `kOfficeTables`.
std::vector<std::vector<OfficeColumn>> officeColumns();

/// True for the statement that makes a table of the office, whatever its remarks and blanks are.
bool isOfficeDefinition(const std::string& sql);

}  // namespace orv
