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

/// Taken: this run has the lock. TakenOver: likewise, and this computer already had one. Refused: another terminal or
/// another run on this computer has the company. Failed: the pair holds the failure.
enum class CompanyLock : std::uint8_t { Taken, TakenOver, Refused, Failed };

/// Locks the company for this run on the open store, and releases `held`, the company of this run so far. Shows
/// "COS20003" if another terminal has the company. If another run on this computer has it, that run's window comes to
/// the front. A lock of this computer that no running program holds was left by a crashed run, and is replaced.
///
/// The steps are not one transaction. A failure after the release of `held` leaves no lock on either company.
[[nodiscard]] CompanyLock lockCompany(const std::string& userId, const std::string& held = {});

/// Ends this run's reservation of the company on this computer. Does not change the store.
void giveUpCompany(const std::string& userId);

}  // namespace orv
