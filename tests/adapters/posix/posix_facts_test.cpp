#include "adapters/posix/posix_facts.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "temp_office.h"

namespace orv {
namespace {

TEST(PosixFacts, ComputerNameIsUpperCaseAndWhole) {
    const std::pair<const char*, const char*> cases[] = {
        {"terminal-with-a-long-name-02.office", "TERMINAL-WITH-A-LONG-NAME-02.OFFICE"}, {" 端末a\t", "端末A"}};
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

}  // namespace
}  // namespace orv
