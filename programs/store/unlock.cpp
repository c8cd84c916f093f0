#include "keeper.h"

namespace orv {

StoreReport unlockStore(const Options& options) {
    const auto store = openStore(options.store);
    const RecordsetPtr held = store->select(
        "SELECT USER_ID, INSERT_DATE FROM TBL_LOCK WHERE LOCAL_INFO = $1 ORDER BY USER_ID", {options.other});
    StoreReport report;
    report.facts = {{"computer", options.other}, {"freed", 0}};
    if (held->RecordCount() == 0) {
        report.say(options.other + " holds no company");
        report.ending = Ending::Findings;
        return report;
    }
    for (; !held->Eof(); held->MoveNext()) {
        const Value since = held->Fields(1);
        reportProgress(options, toText(held->Fields(0)) + " since " + (since.isNull() ? "?" : toText(since)));
    }
    if (!agreed(options, "Is the program on " + options.other + " no longer running, and may these be freed?")) {
        report.say("nothing freed");
        report.ending = Ending::Findings;
        return report;
    }
    const std::int32_t freed = store->change("DELETE FROM TBL_LOCK WHERE LOCAL_INFO = $1", {options.other});
    report.facts["freed"] = freed;
    report.say(std::to_string(freed) + " locks of " + options.other + " freed");
    return report;
}

}  // namespace orv
