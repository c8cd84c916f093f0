#include "audit.h"

#include <gtest/gtest.h>

namespace bench {
namespace {

/// Returns a save that ended at `end` and wrote `value`, by a terminal that had loaded the company around `taken`.
Entry saved(int value, std::int64_t end, std::int64_t taken) {
    return {Deed::Saved, "100000001", {end - 1, end}, value, {taken, taken + 5}};
}

Entry unsure(int value) { return {Deed::Unsure, "100000001", {}, value, {}}; }

struct Case {
    const char* what;
    std::vector<Entry> entries;
    int stored, lost, raced;
};

TEST(Audit, DistinguishesLostUpdatesFromThoseThatTheLockAccepts) {
    const Case cases[] = {
        {"each builds on the one before", {saved(1, 10, 0), saved(2, 20, 0), saved(3, 40, 30)}, 3, 0, 0},
        {"the ledgers come terminal by terminal", {saved(3, 40, 30), saved(1, 10, 0), saved(2, 20, 0)}, 3, 0, 0},
        {"two on the same reading", {saved(1, 10, 0), saved(1, 40, 30)}, 1, 1, 0},
        {"two that had locked at the same moment", {saved(1, 10, 0), saved(1, 40, 4)}, 1, 0, 1},
        {"and the first continues from its older count", {saved(2, 20, 0), saved(1, 30, 4), saved(2, 40, 4)}, 2, 0, 3},
        {"one goes over two", {saved(1, 10, 0), saved(2, 20, 0), saved(1, 40, 30)}, 1, 2, 0},
        {"a confirmed save is missing", {saved(1, 10, 0), saved(2, 20, 0)}, 1, 1, 0},
        {"the store has an unwritten count", {saved(1, 10, 0)}, 2, 1, 0},
        {"a failed save was written after all", {saved(1, 10, 0), unsure(2)}, 2, 0, 0},
        {"and built upon", {saved(1, 10, 0), unsure(2), saved(3, 40, 30)}, 3, 0, 0},
        {"a failed save was not written", {saved(1, 10, 0), unsure(2), saved(2, 40, 30)}, 2, 0, 0}};
    for (const Case& each : cases) {
        const Losses losses = audit(each.entries, {{"100000001", each.stored}});
        EXPECT_EQ(losses.lost, each.lost) << each.what;
        EXPECT_EQ(losses.raced, each.raced) << each.what;
    }
}

}  // namespace
}  // namespace bench
