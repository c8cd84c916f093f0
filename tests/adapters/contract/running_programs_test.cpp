#include <gtest/gtest.h>

#include <random>

#include "adapters/system/system_adapters.h"

namespace orv {
namespace {

/// The watches of one run, and the number of calls to it.
struct OneRun {
    explicit OneRun(const std::string& place)
        : names(
              [this](auto, std::function<void()> called) {
                  arrivals.push_back(std::move(called));
                  return std::shared_ptr<void>();
              },
              place, [this] { ++calls; }) {}

    std::vector<std::function<void()>> arrivals;
    int calls = 0;
    SystemRuns names;
};

TEST(RunningPrograms, AHeldNameCallsItsHolderAndIsFreeWhenTheHolderHasGone) {
    const std::string place = "running-programs-test-" + std::to_string(std::random_device()());
    auto first = std::make_unique<OneRun>(place);
    OneRun second(place);
    OneRun elsewhere(place + "x");
    EXPECT_TRUE(first->names.claim("DESK-01/000004601"));
    EXPECT_TRUE(first->names.claim("DESK-01/000004601")) << "its own";
    EXPECT_FALSE(second.names.claim("DESK-01/000004601"));
    first->arrivals.front()();
    EXPECT_EQ(first->calls, 1);
    EXPECT_TRUE(elsewhere.names.claim("DESK-01/000004601"));
    EXPECT_TRUE(second.names.claim(std::string(1000, 'x')));

    first->names.leave("DESK-01/000004601");
    EXPECT_TRUE(second.names.claim("DESK-01/000004601"));
    second.names.leave("DESK-01/000004601");
    EXPECT_TRUE(first->names.claim("DESK-01/000004601"));
    first.reset();
    EXPECT_TRUE(second.names.claim("DESK-01/000004601")) << "a run that has ended holds nothing";
}

}  // namespace
}  // namespace orv
