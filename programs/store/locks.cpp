#include <cstdio>
#include <ctime>
#include <optional>

#include "keeper.h"

namespace orv {
namespace {

/// Returns the whole hours since a lock's time in the terminals' local time, or null if it is not a time.
std::optional<long> hoursSince(const std::string& since) {
    std::tm time{};
    time.tm_isdst = -1;
    if (std::sscanf(since.c_str(), "%4d/%2d/%2d %2d:%2d:%2d", &time.tm_year, &time.tm_mon, &time.tm_mday, &time.tm_hour,
                    &time.tm_min, &time.tm_sec) != 6) {
        return std::nullopt;
    }
    time.tm_year -= 1900;
    time.tm_mon -= 1;
    return static_cast<long>(std::difftime(std::time(nullptr), std::mktime(&time)) / 3600);
}

}  // namespace

void listLocks(StoreConnection& store, StoreReport& report) {
    auto& locks = report.facts["locks"] = nlohmann::ordered_json::array();
    const RecordsetPtr rows =
        store.select("SELECT USER_ID, LOCAL_INFO, INSERT_DATE FROM TBL_LOCK ORDER BY INSERT_DATE, USER_ID", {});
    for (; !rows->Eof(); rows->MoveNext()) {
        const std::string user = toText(rows->Fields(0));
        const std::string computer = toText(rows->Fields(1));
        const std::string since = rows->Fields(2).isNull() ? "" : toText(rows->Fields(2));
        const std::optional<long> age = hoursSince(since);
        locks.push_back({{"company", user}, {"computer", computer}, {"since", since}, {"hours", nullptr}});
        if (age) {
            locks.back()["hours"] = *age;
        }
        report.say("lock: " + user + " by " + computer + " since " + since +
                   (age ? ", " + std::to_string(*age) + " hours" : ""));
    }
}

}  // namespace orv
