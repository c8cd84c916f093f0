#include "ledger.h"

#include <chrono>
#include <fstream>

namespace bench {

std::int64_t nanosecondsNow() {
    using std::chrono::nanoseconds;
    return std::chrono::duration_cast<nanoseconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void append(const std::string& file, const Entry& entry) {
    std::ofstream(file, std::ios::app) << static_cast<int>(entry.deed) << ' ' << entry.what << ' ' << entry.time.from
                                       << ' ' << entry.time.to << ' ' << entry.value << ' ' << entry.taken.from << ' '
                                       << entry.taken.to << '\n';
}

std::vector<Entry> readLedger(const std::string& file) {
    std::vector<Entry> entries;
    std::ifstream lines(file);
    int deed = 0;
    for (Entry entry; lines >> deed >> entry.what >> entry.time.from >> entry.time.to >> entry.value >>
                      entry.taken.from >> entry.taken.to;) {
        entry.deed = static_cast<Deed>(deed);
        entries.push_back(entry);
    }
    return entries;
}

}  // namespace bench
