#include "adapters/posix/posix_facts.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "temp_office.h"

namespace orv {
namespace {

TEST(PosixFacts, ComputerNameIsUpperCaseAndWhole) {
    const struct {
        const char* given;
        const char* expected;
    } cases[] = {
        {"terminal-with-a-long-name-02.office", "TERMINAL-WITH-A-LONG-NAME-02.OFFICE"},
        {" desk1\t", "DESK1"},
        {"端末a", "端末A"},
        {"o'desk", "O'DESK"},
    };
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
    const std::time_t before = std::time(nullptr);
    const DateTime now = PosixClock().now();
    std::tm moment{};
    moment.tm_year = now.year - 1900;
    moment.tm_mon = now.month - 1;
    moment.tm_mday = now.day;
    moment.tm_hour = now.hour - 9;
    moment.tm_min = now.minute;
    moment.tm_sec = now.second;
    const std::time_t told = ::timegm(&moment);
    ::unsetenv("TZ");
    ::tzset();
    EXPECT_GE(told, before);
    EXPECT_LE(told, std::time(nullptr));
}

}  // namespace
}  // namespace orv
