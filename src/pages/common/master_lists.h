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

/// Fills the list from the table that `kind` stands for, on the open store; `code` narrows the kinds 0 and 1. An empty
/// master is a failure, an empty list of companies or corporations is none. False: the pair tells why.
[[nodiscard]] bool PF_MakeComboBox(ComboBox& combo, const std::string& code, bool addBlank, std::int16_t kind);

/// The list of companies with the entry for a new one at its end, unless the store holds that entry already. False: the
/// pair tells why.
[[nodiscard]] bool fillCompanies(ComboBox& combo);

}  // namespace bas_FromCommon
}  // namespace orv
