#include "nightly_backups.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <set>

#include "adapters/store/file_path.h"
#include "adapters/system/system_adapters.h"

namespace orv {
namespace {

namespace fs = std::filesystem;
using std::chrono::local_days;
using std::chrono::local_seconds;

constexpr const char* kName = "orv-%04d%02u%02u-%02d%02d%02d.mdb";
constexpr std::size_t kLongestName = 80;
constexpr std::size_t kDays = 7;
constexpr std::size_t kWeeks = 4;

local_seconds toMoment(int year, unsigned month, unsigned day, int hour, int minute, int second) {
    return local_days(std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day)) +
           std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second);
}

std::optional<local_seconds> timeIn(const std::string& name) {
    int year = 0, hour = 0, minute = 0, second = 0;
    unsigned month = 0, day = 0;
    if (std::sscanf(name.c_str(), "orv-%4d%2u%2u-%2d%2d%2d", &year, &month, &day, &hour, &minute, &second) != 6) {
        return std::nullopt;
    }
    const local_seconds time = toMoment(year, month, day, hour, minute, second);
    return nightlyName(time) == name ? std::optional(time) : std::nullopt;
}

local_days toDay(const NightlyBackup& backup) { return std::chrono::floor<std::chrono::days>(backup.time); }

/// Counts from the week of 1 January 1970, a Thursday.
std::int64_t toWeek(const NightlyBackup& backup) { return (toDay(backup).time_since_epoch().count() + 3) / 7; }

}  // namespace

fs::path backupFolder(const Options& options) {
    if (!options.other.empty()) {
        return filePath(options.other);
    }
    return fs::absolute(filePath(options.store)).parent_path().parent_path() / "BKUP";
}

local_seconds localNow() {
    const DateTime now = SystemClock().now();
    return toMoment(now.year, static_cast<unsigned>(now.month), static_cast<unsigned>(now.day), now.hour, now.minute,
                    now.second);
}

std::string nightlyName(local_seconds time) {
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    std::array<char, kLongestName> name{};
    std::snprintf(name.data(), name.size(), kName, static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                  static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()),
                  static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()));
    return name.data();
}

std::vector<NightlyBackup> nightlyBackups(const fs::path& folder) {
    std::error_code error;
    std::vector<NightlyBackup> found;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        const auto time = timeIn(pathText(entry.path().filename()));
        if (time && entry.symlink_status().type() == fs::file_type::regular) {
            found.push_back({entry.path(), *time});
        }
    }
    if (error) {
        throw KeeperFailure(pathText(folder) + ": " + error.message());
    }
    std::ranges::sort(found, std::greater(), &NightlyBackup::time);
    return found;
}

std::vector<NightlyBackup> outdated(const std::vector<NightlyBackup>& newestFirst) {
    std::vector<NightlyBackup> old;
    std::vector<NightlyBackup> older;
    std::set<local_days> days;
    for (const NightlyBackup& backup : newestFirst) {
        if (!days.contains(toDay(backup)) && days.size() == kDays) {
            older.push_back(backup);
        } else if (!days.insert(toDay(backup)).second) {
            old.push_back(backup);
        }
    }
    std::set<std::int64_t> weeks;
    for (std::size_t at = 0; at < older.size(); ++at) {
        const std::int64_t week = toWeek(older[at]);
        const bool isFirst = at + 1 == older.size() || toWeek(older[at + 1]) != week;
        if (!isFirst || weeks.size() == kWeeks) {
            old.push_back(older[at]);
        } else {
            weeks.insert(week);
        }
    }
    return old;
}

}  // namespace orv
