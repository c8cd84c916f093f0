#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "keeper.h"

namespace orv {

/// A backup made by `nightly`. Its name contains the local time of its start.
struct NightlyBackup {
    std::filesystem::path file;
    std::chrono::local_seconds time;
};

/// Returns the folder that the command names, or else the office's: BKUP next to the folder of the store.
std::filesystem::path backupFolder(const Options& options);

/// Returns the local time to a second.
std::chrono::local_seconds localNow();

std::string nightlyName(std::chrono::local_seconds time);

/// Returns the backups in the folder, the newest first. Files with other names are not listed. Fails if the folder
/// cannot be read.
std::vector<NightlyBackup> nightlyBackups(const std::filesystem::path& folder);

/// Returns the backups to delete from such a list. The newest of each of the last 7 days with a backup stays. Of the
/// older ones the first of each of the last 4 weeks stays; weeks begin on Monday.
std::vector<NightlyBackup> outdated(const std::vector<NightlyBackup>& newestFirst);

}  // namespace orv
