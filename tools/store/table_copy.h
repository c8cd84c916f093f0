#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "adapters/store/store_connection.h"
#include "keeper.h"

namespace orv {

/// The tables of the office, the one that all others belong to first.
inline constexpr auto kOfficeTables =
    std::to_array<const char*>({"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE", "TBL_LOCK", "MST_OTHERS",
                                "MST_PROPERTY_TYPE", "MST_TIKU", "MST_CORP"});

/// A table as it is to stand in a store: the columns that its rows fill, in their order.
struct WholeTable {
    std::string name;
    std::vector<std::string> columns;
    std::vector<Values> rows;
};

struct CopiedTable {
    std::string name;
    std::size_t rows;
    std::string checksum;  // of all values, whatever the order of the rows
};

/// What tells of each table as it comes and puts it into the report.
std::function<void(const CopiedTable&)> telling(const Options& options, StoreReport& report);

/// Puts the office's tables of `from`, as they are at one moment, in the place of those of `to`, in one transaction,
/// and reads them back before it ends: what has not arrived as it left is a failure, and nothing is changed.
void copyTables(StoreConnection& from, StoreConnection& to, const std::function<void(const CopiedTable&)>& onCopied);

/// The writing half of it.
void writeTables(const std::vector<WholeTable>& tables, StoreConnection& to,
                 const std::function<void(const CopiedTable&)>& onCopied);

}  // namespace orv
