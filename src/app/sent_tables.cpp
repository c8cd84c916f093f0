#include "app/sent_tables.h"

#include "core/record/company_record.h"
#include "store/statement_columns.h"

namespace orv {
namespace {

/// A column of `TBL_CUSTOMER_INFO` that is not a field of the record.
constexpr SentColumn kPublishNumber{"CONTRACT_PUBLISHNUMBER"};

std::vector<SentColumn> infoColumns() {
    std::vector<SentColumn> columns;
    for (const FieldInfo& field : kFields) {
        if (field.table == Table::Info) {
            columns.push_back({field.name});
        }
    }
    columns.push_back(kPublishNumber);
    return columns;
}

std::vector<SentColumn> addColumns() {
    std::vector<SentColumn> columns;
    for (const Column& column : kAddColumns) {
        columns.push_back({column.name, column.field == nullptr});
    }
    return columns;
}

}  // namespace

std::vector<SentTable> sentTables() {
    return {
        {"TBL_CUSTOMER_INFO", infoColumns()}, {"TBL_CUSTOMER_ADD", addColumns()}, {"TBL_CUSTOMER_DATE", {{"USER_ID"}}}};
}

}  // namespace orv
