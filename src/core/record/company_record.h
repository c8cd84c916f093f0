#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/record/company_fields.h"

namespace orv {

/// All data of one agency. Numbers, dates and codes are text; a blank field is empty, never null.
struct CompanyRecord {
#define COMPANY_TEXT(name, table, source, cleared, zeros) std::string name = cleared;
#define COMPANY_FLAG(name, table) bool name = false;
    COMPANY_FIELDS(COMPANY_TEXT, COMPANY_FLAG)
#undef COMPANY_TEXT
#undef COMPANY_FLAG
};

/// Identifies a text field of the record.
using TextField = std::string CompanyRecord::*;

enum class Table : std::uint8_t { None, Info, Add };
enum class Source : std::uint8_t { Stored, Probed, Unset };

/// `text` is null for the one boolean field.
struct FieldInfo {
    std::string_view name;
    TextField text;
    Table table;
    Source source;
    std::string_view cleared;
    std::uint8_t zeros;
};

inline constexpr auto kFields = std::to_array<FieldInfo>({
#define COMPANY_TEXT(name, table, source, cleared, zeros) \
    {#name, &CompanyRecord::name, Table::table, Source::source, cleared, zeros},
#define COMPANY_FLAG(name, table) {#name, nullptr, Table::table, Source::Stored, "", 0},
    COMPANY_FIELDS(COMPANY_TEXT, COMPANY_FLAG)
#undef COMPANY_TEXT
#undef COMPANY_FLAG
});

/// The key of a company that has no number from the server yet.
inline constexpr std::string_view kNewCompany = "---------";

inline namespace bas_Main_Companydata {

/// Resets every field to its cleared value except `CSD_VER`, which the next probe overwrites.
bool PF_SetCompanyDataStructureInis();

}  // namespace bas_Main_Companydata

}  // namespace orv
