// Runs the seeds of every target, whole and truncated, without a fuzzer.
#include <gtest/gtest.h>

#include "fuzz/fuzz_target.h"

namespace orv::test {
namespace {

class Seeds : public testing::TestWithParam<FuzzTarget> {};

TEST_P(Seeds, AreTakenWholeAndCutOff) {
    constexpr std::size_t kCuts = 40;
    for (const std::string& seed : GetParam().seeds) {
        const std::size_t step = seed.size() / kCuts + 1;
        for (std::size_t length = 0; length < seed.size() + step; length += step) {
            const std::string bytes = seed.substr(0, std::min(length, seed.size()));
            ASSERT_NO_THROW(GetParam().run(bytes)) << testing::PrintToString(bytes);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, Seeds, testing::ValuesIn(fuzzTargets()),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace orv::test
