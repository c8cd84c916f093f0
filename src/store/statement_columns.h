#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "core/record/company_record.h"

namespace orv {

/// A column of a statement and its field; null for the boolean field.
struct Column {
    std::string_view name;
    TextField field;
};

namespace columns {

/// Read and shown nowhere. A save leaves this column unchanged.
inline constexpr std::string_view kLeftAlone = "MAIL_FLG";

constexpr bool inInfo(const FieldInfo& field) { return field.table == Table::Info && field.name != kLeftAlone; }

constexpr Column named(std::string_view name) {
    for (const FieldInfo& field : kFields) {
        if (field.name == name) {
            return {field.name, field.text};
        }
    }
    throw "no such field";
}

}  // namespace columns

/// Columns of the statements on `TBL_CUSTOMER_INFO`: its fields in the record's order.
inline constexpr auto kInfoColumns = [] {
    constexpr auto count = std::count_if(kFields.begin(), kFields.end(), columns::inInfo);
    std::array<Column, count> result{};
    std::size_t next = 0;
    for (const FieldInfo& field : kFields) {
        if (columns::inInfo(field)) {
            result[next++] = {field.name, field.text};
        }
    }
    return result;
}();

/// Columns of the statements on `TBL_CUSTOMER_ADD`. Unlike in the record, both photo files precede the groups.
inline constexpr auto kAddColumns = std::to_array<Column>({
    columns::named("USER_ID"),
    columns::named("OFFICE_HOURS"),
    columns::named("DAY_OFF"),
    columns::named("COMPANY_COMMENT"),
    columns::named("COMPANY_URL_COMMENT"),
    columns::named("COMPANY_URL"),
    columns::named("PHOTO_FILE1"),
    columns::named("PHOTO_FILE2"),
    columns::named("PHOTO_GRP1"),
    columns::named("PHOTO_GRP2"),
    columns::named("SEND_FLAG"),
    columns::named("MANAGEMENT_TYPE_FLG"),
    columns::named("BUSINESS_TYPE_FLG"),
    columns::named("OS_VER"),
    columns::named("OS_MAJOR_VER"),
    columns::named("OS_MINOR_VER"),
    columns::named("OS_BUILD_VER"),
    columns::named("NET_TYPE"),
    columns::named("IP_ADDRESS"),
    columns::named("SYS_HD_CAP"),
    columns::named("INS_HD_CAP"),
    columns::named("INS_ORV_PATH"),
    columns::named("MEMORY"),
    columns::named("CPU"),
    columns::named("IE_VER"),
    columns::named("PROXY_INFO"),
});

static_assert(
    [] {
        for (const FieldInfo& field : kFields) {
            const auto times = std::count_if(kAddColumns.begin(), kAddColumns.end(),
                                             [&](const Column& column) { return column.name == field.name; });
            const bool wanted = field.table == Table::Add || field.name == "USER_ID";
            if (times != (wanted ? 1 : 0)) {
                return false;
            }
        }
        return true;
    }(),
    "the column list contains the key and each field of the table once, and no other");

}  // namespace orv
