#include "adapters/posix/posix_facts.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <ctime>

#include "temp_office.h"

namespace orv {
namespace {

TEST(PosixFacts, ComputerNameIsUpperCaseAndWhole) {
    const std::pair<const char*, const char*> cases[] = {
        {"terminal-with-a-long-name-02.office", "TERMINAL-WITH-A-LONG-NAME-02.OFFICE"},
        {" desk1\t", "DESK1"},
        {"端末a", "端末A"},
        {"o'desk", "O'DESK"}};
    for (const auto& [given, expected] : cases) {
        ::setenv("ORV_COMPUTER_NAME", given, 1);
        EXPECT_EQ(PosixFacts().GetComputerName(), expected);
    }
    ::setenv("ORV_COMPUTER_NAME", " ", 1);
    const std::string blankGiven = PosixFacts().GetComputerName();
    ::unsetenv("ORV_COMPUTER_NAME");
    std::ifstream kernelName("/proc/sys/kernel/hostname");
    std::string host;
    kernelName >> host;
    std::transform(host.begin(), host.end(), host.begin(), [](unsigned char c) { return std::toupper(c); });
    EXPECT_EQ(PosixFacts().GetComputerName(), host);
    EXPECT_EQ(blankGiven, host);
}

TEST(PosixClock, TellsTheLocalTime) {
    ::setenv("TZ", "JST-9", 1);
    ::tzset();
    // The zone has no summer time, so that the text of the moment nine hours ago in UTC is the same.
    const std::time_t there = std::time(nullptr) + 9 * 60 * 60;
    const std::string told = formatMoment(PosixClock().now(), "yyyymmddhhnn");
    std::array<char, 16> expected{};
    std::strftime(expected.data(), expected.size(), "%Y%m%d%H%M", std::gmtime(&there));
    ::unsetenv("TZ");
    ::tzset();
    EXPECT_LE(std::stoll(told) - std::stoll(expected.data()), 1);
    EXPECT_GE(told, expected.data());
}

}  // namespace
}  // namespace orv
