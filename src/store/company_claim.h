#pragma once

#include <string>

namespace orv {

/// Reserves the company for this run. False if another run on this computer has reserved it; that run's window comes to
/// the front and keeps its lock in the store.
[[nodiscard]] bool claimCompany(const std::string& userId);

/// Releases the reservation.
void giveUpCompany(const std::string& userId);

}  // namespace orv
