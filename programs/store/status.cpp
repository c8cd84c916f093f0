#include "adapters/store/file_path.h"
#include "adapters/store/store_file_check.h"
#include "keeper.h"
#include "nightly_backups.h"
#include "source_store.h"
#include "version.h"

namespace orv {
namespace {

namespace fs = std::filesystem;

/// A younger backup shows that last night's run worked, or that of the night before a day off.
constexpr std::chrono::hours kLongestAge(48);

std::int64_t readSize(StoreConnection& store, const std::string& path) {
    if (isEmbedded(path)) {
        return static_cast<std::int64_t>(fs::file_size(filePath(path)));
    }
    return std::stoll(toText(store.select("SELECT pg_database_size(current_database())", {})->Fields(0)));
}

void addStore(const Options& options, StoreReport& report) {
    const SourceStore source(options.store);
    const std::string kind = isEmbedded(options.store) ? "file" : "server";
    const std::int64_t size = readSize(source.get(), options.store);
    const std::int64_t companies = count(source.get(), "TBL_CUSTOMER_INFO");
    report.facts = {
        {"version", kVersion}, {"store", options.store}, {"kind", kind}, {"bytes", size}, {"companies", companies}};
    report.say("version: " + std::string(kVersion));
    report.say("store: " + options.store + ", a " + kind);
    report.say("size: " + std::to_string(size) + " bytes");
    report.say("companies: " + std::to_string(companies));
    listLocks(source.get(), report);
}

void addLastBackup(const Options& options, StoreReport& report) {
    std::error_code none;
    const fs::path folder = backupFolder(options);
    const auto backups = fs::exists(folder, none) ? nightlyBackups(folder) : std::vector<NightlyBackup>();
    if (backups.empty()) {
        report.facts["backup"] = nullptr;
        report.say("last backup: none in " + pathText(folder));
        report.ending = Ending::Findings;
        return;
    }
    const auto age = std::chrono::floor<std::chrono::hours>(localNow() - backups.front().time);
    const std::string file = pathText(backups.front().file);
    report.facts["backup"] = {{"file", file}, {"hours", age.count()}};
    report.say("last backup: " + file + ", " + std::to_string(age.count()) + " hours ago");
    report.ending = age > kLongestAge ? Ending::Findings : Ending::Done;
}

}  // namespace

StoreReport showStatus(const Options& options) {
    StoreReport report;
    addStore(options, report);
    addLastBackup(options, report);
    return report;
}

}  // namespace orv
