#pragma once

#include <cstdint>
#include <string>

namespace orv {

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
