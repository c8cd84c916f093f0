#include "adapters/store/file_path.h"
#include "keeper.h"
#include "nightly_backups.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

fs::path writeBackup(const Options& options, const fs::path& folder) {
    Options backup = options;
    const fs::path file = folder / nightlyName(localNow());
    backup.other = pathText(file);
    backUpStore(backup);
    return file;
}

std::vector<std::string> removeOutdated(const fs::path& folder) {
    std::vector<std::string> removed;
    for (const NightlyBackup& backup : outdated(nightlyBackups(folder))) {
        fs::remove(backup.file);
        removed.push_back(pathText(backup.file));
    }
    return removed;
}

}  // namespace

/// Makes the backup first, so that neither a finding nor a failure of the check prevents it. Without a new backup no
/// old one is removed.
StoreReport runNightly(const Options& options) {
    const fs::path folder = backupFolder(options);
    const fs::path file = writeBackup(options, folder);
    const std::vector<std::string> removed = removeOutdated(folder);
    reportProgress(options, pathText(file) + ": written");
    StoreReport report = checkStore(options);
    const std::size_t findings = report.facts["findings"].size();
    report.facts["backup"] = pathText(file);
    report.facts["bytes"] = fs::file_size(file);
    report.facts["removed"] = removed;
    report.say("nightly: " + std::string(findings == 0 ? "OK" : "FINDINGS") + ", " + pathText(file) + " written, " +
               std::to_string(removed.size()) + " old backups removed, " + std::to_string(findings) +
               " findings of the check");
    return report;
}

}  // namespace orv
