#pragma once

#include <cstdint>
#include <string>

namespace orv {

inline namespace bas_DataLock {

/// The type of this program's locks in the table that the whole suite uses.
inline constexpr const char* kLockType = "COS";
inline constexpr const char* kLockNumber = "99999999";

inline constexpr std::int16_t kLockFailed = -1;
inline constexpr std::int16_t kNotLocked = 0;
inline constexpr std::int16_t kLockedElsewhere = 1;
inline constexpr std::int16_t kLockedHere = 2;

/// Returns one of the four states above. `holder` receives the other computer's name if the company is locked
/// elsewhere, otherwise "". On -1 the pair holds the failure.
[[nodiscard]] std::int16_t PF_DataLockCheck(const std::string& userId, const std::string& typeCode,
                                            const std::string& propertyNo, std::string& holder);

/// Replaces this computer's lock on the company with a new one. On false the pair holds the failure.
[[nodiscard]] bool PF_DataLock(const std::string& userId, const std::string& typeCode, const std::string& propertyNo);

/// Removes this computer's lock. True also if there was none. On false the pair holds the failure.
[[nodiscard]] bool PF_DataUnlock(const std::string& userId, const std::string& typeCode, const std::string& propertyNo);

}  // namespace bas_DataLock

}  // namespace orv
