#include "working_day.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "process.h"

namespace bench {
namespace {

/// Time for all terminals to start before the measurement begins.
constexpr std::int64_t kStartUp = 1'500'000'000;
constexpr std::int64_t kSecond = 1'000'000'000;

using Processes = std::vector<std::unique_ptr<ui_driver::Process>>;

void waitForAll(const Processes& processes) {
    for (const auto& process : processes) {
        if (process->wait(std::chrono::seconds(120)) != 0) {
            throw std::runtime_error("a terminal has crashed or hangs");
        }
    }
}

double at95(std::vector<double> values) {
    if (values.empty()) {
        return 0;
    }
    std::ranges::sort(values);
    return values[values.size() * 95 / 100];
}

void sumUp(const std::vector<Entry>& entries, const Span& shift, WorkingDay& day) {
    std::vector<double> durations;
    int inTime = 0;
    for (const Entry& entry : entries) {
        ++day.deeds[entry.deed];
        if (entry.deed == Deed::Failed) {
            ++day.failures[entry.what];
        } else if (entry.deed == Deed::Saved) {
            durations.push_back(entry.time.milliseconds());
            inTime += entry.time.to <= shift.to ? 1 : 0;
        }
    }
    day.savesPerSecond = inTime * 1000 / shift.milliseconds();
    day.saveMilliseconds95 = at95(std::move(durations));
}

}  // namespace

WorkingDay work(const Site& site, int terminals, int companies, int seconds) {
    std::vector<std::string> offices;
    for (int number = 1; number <= terminals; ++number) {
        offices.push_back(site.terminal(number));
    }
    const std::int64_t from = nanosecondsNow() + kStartUp;
    const Span shift{from, from + seconds * kSecond};
    Processes processes;
    for (int number = 1; number <= terminals; ++number) {
        processes.push_back(std::make_unique<ui_driver::Process>(
            std::vector<std::string>{BENCH_TERMINAL, offices[static_cast<std::size_t>(number - 1)],
                                     site.ledger(number).string(), std::to_string(companies), std::to_string(number),
                                     std::to_string(shift.from), std::to_string(shift.to)},
            ui_driver::Environment{{"ORV_COMPUTER_NAME", "DESK-" + std::to_string(number)}}));
    }
    waitForAll(processes);
    std::vector<Entry> entries;
    for (int number = 1; number <= terminals; ++number) {
        const std::vector<Entry> more = readLedger(site.ledger(number).string());
        entries.insert(entries.end(), more.begin(), more.end());
    }
    WorkingDay day;
    sumUp(entries, shift, day);
    day.losses = audit(entries, site.counts());
    day.locksLeft = site.locks();
    return day;
}

}  // namespace bench
