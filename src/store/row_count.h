#pragma once

#include <cstdint>
#include <string>

namespace orv {

/// What `PF_GetRowCountZero` counts: by number of mode, the table, and how it is narrowed.
inline constexpr std::int16_t kCountInfo = 10;
inline constexpr std::int16_t kCountAdd = 11;
inline constexpr std::int16_t kCountDate = 12;

/// Whether the open store holds no row of `userId` in the table of `mode`. False also when the probe failed: callers go
/// on as if the row existed, and the pair tells of the failure.
[[nodiscard]] bool PF_GetRowCountZero(const std::string& key2, const std::string& userId, std::int16_t mode,
                                      const std::string& key3);

/// The probe of the modes 10 to 12.
[[nodiscard]] inline bool noRowOf(const std::string& userId, std::int16_t mode) {
    return PF_GetRowCountZero("", userId, mode, "");
}

}  // namespace orv
