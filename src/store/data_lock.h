#pragma once

#include <cstdint>
#include <string>

namespace orv {

inline namespace bas_DataLock {

/// What this program locks of a company in the table that serves the whole suite.
inline constexpr const char* kLockType = "COS";
inline constexpr const char* kLockNumber = "99999999";

inline constexpr std::int16_t kLockFailed = -1;
inline constexpr std::int16_t kNotLocked = 0;
inline constexpr std::int16_t kLockedElsewhere = 1;
inline constexpr std::int16_t kLockedHere = 2;

/// Who holds the company, of the four above. `holder` is the other computer's name when it is locked elsewhere, else
/// empty. -1: the pair tells why.
[[nodiscard]] std::int16_t PF_DataLockCheck(const std::string& userId, const std::string& typeCode,
                                            const std::string& propertyNo, std::string& holder);

/// Removes this computer's lock on the company and inserts a new one. False: the pair tells why.
[[nodiscard]] bool PF_DataLock(const std::string& userId, const std::string& typeCode, const std::string& propertyNo);

/// Removes this computer's lock; true also when there was none. False: the pair tells why.
[[nodiscard]] bool PF_DataUnlock(const std::string& userId, const std::string& typeCode, const std::string& propertyNo);

}  // namespace bas_DataLock

}  // namespace orv
