#include "store/rows.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/record/globals.h"
#include "logging/trap.h"
#include "platform/ascii.h"
#include "platform/run_time_error.h"
#include "platform/services.h"
#include "platform/suite/sql_text.h"

namespace orv {
namespace {

struct CountMode {
    std::int16_t mode;
    std::string_view table;
    std::string_view key2Column;
    bool excludesKey3;
};

constexpr auto kModes = std::to_array<CountMode>({
    {0, "TBL_SS_BASE", "INQUIRY_NO", true},
    {1, "TBL_SS_BASE", "PROPERTY_NO", false},
    {2, "TBL_SS_BASE", "ESTATE_INQUIRY_ID", true},
    {kCountInfo, "TBL_CUSTOMER_INFO", "", false},
    {kCountAdd, "TBL_CUSTOMER_ADD", "", false},
    {kCountDate, "TBL_CUSTOMER_DATE", "", false},
});

/// Returns "" for an unknown mode, which the store then rejects.
std::string countStatement(const std::string& key2, const std::string& userId, std::int16_t mode,
                           const std::string& key3) {
    const auto* row = std::find_if(kModes.begin(), kModes.end(), [mode](const CountMode& m) { return m.mode == mode; });
    if (row == kModes.end()) {
        return {};
    }
    std::string sql =
        "  SELECT COUNT(*)     FROM " + std::string(row->table) + "    WHERE USER_ID = " + rawSqlText(userId) + " ";
    if (!row->key2Column.empty()) {
        sql += "     AND " + std::string(row->key2Column) + " = " + rawSqlText(key2) + " ";
    }
    if (row->excludesKey3 && !trimmed(key3).empty()) {
        sql += " AND PROPERTY_NO <> " + rawSqlText(key3);
    }
    return sql;
}

}  // namespace

Rows::Rows(const std::string& sql) { services().db->DbOpenRs(gConn, gRs, sql, ok_); }

Rows::~Rows() {
    if (!closed_) {
        static_cast<void>(close());  // a destructor cannot report a failed close
    }
}

Recordset& Rows::operator*() const {
    if (!gRs) {
        throw RunTimeError(Failure::ObjectNotSet);
    }
    return *gRs;
}

bool Rows::close() {
    closed_ = true;
    bool ok = false;
    services().db->DbCloseRs(gRs, ok);
    return ok;
}

bool PF_GetRowCountZero(const std::string& key2, const std::string& userId, std::int16_t mode,
                        const std::string& key3) {
    return trapped("", [&] {
        Rows rows(countStatement(key2, userId, mode, key3));
        if (!rows.ok()) {
            return failFrom(services().db->DbError());
        }
        const bool none = toText(rows->Fields(0)) == "0";
        if (!rows.close()) {
            setPair(services().db->DbError());
        }
        return none;
    });
}

}  // namespace orv
