#pragma once

#include <string>

namespace orv {

/// This run works on the company from now on. False if another run on this computer does: its window comes to the
/// front, and the lock in the store is that run's.
[[nodiscard]] bool claimCompany(const std::string& userId);

/// This run works on the company no longer.
void giveUpCompany(const std::string& userId);

}  // namespace orv
