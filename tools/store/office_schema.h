#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orv {

enum class ColumnKind : std::uint8_t { Text, Whole, Flag };

/// A column as the statements that make a store declare it.
struct OfficeColumn {
    std::string name;
    ColumnKind kind = ColumnKind::Text;
    bool isRequired = false;  // without a default: a row must bring a value
    bool isKey = false;
    std::size_t longest = 0;  // bytes of the code page that the field takes; 0: no limit
};

/// The columns of each table of the office, in the order of `kOfficeTables`.
std::vector<std::vector<OfficeColumn>> officeColumns();

}  // namespace orv
