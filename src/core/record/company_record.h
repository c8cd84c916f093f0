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

/// True if the company of the record has no number from the server yet.
bool isNew();

// The password's length in bytes of the code page.
inline constexpr std::int32_t kShortestPassword = 5;
inline constexpr std::int32_t kLongestPassword = 10;

// Values of `PWD_CHG_FLG`, which says whether the server has the password.
inline constexpr const char* kPasswordSent = "1";
inline constexpr const char* kPasswordChanged = "2";

/// True for the kinds of `LICENSE_NO` without a licence. Its number and dates must then be empty.
constexpr bool isWithoutLicence(std::string_view kind) { return kind == "無し" || kind == "貸主"; }

/// The entry for the western calendar in the lists of eras.
inline constexpr std::string_view kWesternCalendar = "西暦";

/// Begins the address of a home page. A page writes it to an empty address when a link name is typed; alone it counts
/// as empty.
inline constexpr std::string_view kUrlPrefix = "http://";

inline constexpr std::int32_t kAreaLength = 5;

/// Returns the area code at the start of an address code.
std::string deriveAreaCode(std::string_view addressCode);

/// One of the company's photos: its slot on the page, its fields, and the end of its stored file's name.
struct PhotoSlot {
    std::int16_t index;
    TextField group;
    TextField file;
    std::string_view fileEnd;
};

inline constexpr std::array<PhotoSlot, 2> kPhotoSlots{{
    {0, &CompanyRecord::PHOTO_GRP1, &CompanyRecord::PHOTO_FILE1, "01.jpg"},
    {1, &CompanyRecord::PHOTO_GRP2, &CompanyRecord::PHOTO_FILE2, "02.jpg"},
}};

inline namespace bas_Main_Companydata {

/// Resets every field to its cleared value except `CSD_VER`, which the next probe overwrites.
bool PF_SetCompanyDataStructureInis();

}  // namespace bas_Main_Companydata

}  // namespace orv
