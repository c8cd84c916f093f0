#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "adapters/store/store_connection.h"
#include "keeper.h"

namespace orv {

/// The tables of the office. The first is the one that all others belong to.
inline constexpr auto kOfficeTables =
    std::to_array<const char*>({"TBL_CUSTOMER_INFO", "TBL_CUSTOMER_ADD", "TBL_CUSTOMER_DATE", "TBL_LOCK", "MST_OTHERS",
                                "MST_PROPERTY_TYPE", "MST_TIKU", "MST_CORP"});

/// A table for a store, with the columns that its rows fill, in order.
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

/// Returns a function that reports each table as it is copied.
std::function<void(const CopiedTable&)> makeReporter(const Options& options, StoreReport& report);

/// Replaces the office's tables of `to` by a snapshot of those of `from`, in one transaction. Reads them back before
/// the commit. If a value differs, the copy fails and changes nothing.
void copyTables(StoreConnection& from, StoreConnection& to, const std::function<void(const CopiedTable&)>& onCopied);

/// Writes the tables without reading a source.
void writeTables(const std::vector<WholeTable>& tables, StoreConnection& to,
                 const std::function<void(const CopiedTable&)>& onCopied);

}  // namespace orv
