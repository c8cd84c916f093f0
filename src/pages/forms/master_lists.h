#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/combo_box.h"

namespace orv {
inline namespace bas_FromCommon {

inline constexpr std::int16_t kListOthers = 0;
inline constexpr std::int16_t kListPropertyTypes = 1;
inline constexpr std::int16_t kListCompanies = 2;
inline constexpr std::int16_t kListDistricts = 3;
inline constexpr std::int16_t kListCorporations = 4;

/// Fills the list from the table for `kind`, on the open store; `code` restricts the kinds 0 and 1. An empty master
/// table is a failure, except for companies and corporations. On false the pair holds the failure.
[[nodiscard]] bool PF_MakeComboBox(ComboBox& combo, const std::string& code, bool addBlank, std::int16_t kind);

/// Fills the list of companies and appends the entry for a new one, unless the store contains it. On false the pair
/// holds the failure.
[[nodiscard]] bool fillCompanies(ComboBox& combo);

}  // namespace bas_FromCommon
}  // namespace orv
