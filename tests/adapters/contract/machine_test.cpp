#include <gtest/gtest.h>

#include "adapters/machine/path_names.h"
#include "adapters/system/system_adapters.h"
#include "adapters/text/cp932.h"
#include "support/temp_office.h"
#include "support/test_registry.h"

namespace orv {
namespace {

TEST(ChooseAddress, TakesTheOneThatOthersReach) {
    const NetAddress loopback{"127.0.0.1", true, true, true};
    const NetAddress down{"10.0.0.9", false, false, true};
    const NetAddress linkOnly{"169.254.3.4", true, false, true};
    const NetAddress v6{"2001:db8::1", true, false, false};
    const NetAddress first{"192.168.1.20", true, false, true};
    const NetAddress second{"10.0.0.5", true, false, true};
    const std::pair<std::vector<NetAddress>, std::string> cases[] = {
        {{}, ""},
        {{loopback, down}, ""},
        {{loopback, first, second}, first.text},
        {{v6, second}, second.text},
        {{linkOnly, v6}, v6.text},
        {{linkOnly}, linkOnly.text},
    };
    for (const auto& [addresses, expected] : cases) EXPECT_EQ(chooseAddress(addresses), expected);
}

class MachineContract : public testing::Test {
protected:
    MachineContract() {
        office.write("registry.txt", "[HKEY_LOCAL_MACHINE\\SOFTWARE\\ZENTHA\\ORV]\nInstallKey=C:\\店\n");
    }

    TempOffice office;
    Cp932 codePage;
    TestRegistry registry{office.root(), codePage};
    MeasuredSystem info{registry, office.paths()};
};

TEST_F(MachineContract, MeasuresTheMachine) {
    const auto isNumber = [](const std::string& text) {
        return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
    };
    bool ok = false;
    std::array<std::string, 5> os;
    info.SysGetOsInfo(os, ok);
    EXPECT_TRUE(ok && !os[0].empty() && isNumber(os[1]) && isNumber(os[2]) && isNumber(os[3])) << os[0];
    std::string memory;
    info.SysGetMemory(memory, ok);
    EXPECT_TRUE(ok && isNumber(memory) && std::stoull(memory) > 100) << memory;
    for (std::string drive : {"C:\\", "C:"}) {
        std::string free;
        std::string all;
        info.SysGetDiskSpace(drive, free, all, ok);
        EXPECT_TRUE(ok && isNumber(free) && isNumber(all) && std::stoull(free) <= std::stoull(all)) << drive;
    }
    for (std::string drive : {"Q:\\", "", "\\\\"}) {
        std::string none;
        info.SysGetDiskSpace(drive, none, none, ok);
        EXPECT_FALSE(ok) << drive;
        EXPECT_EQ(info.SysError().code, "SYSERR:03");
    }
    std::string value;
    info.SysGetRegString("SOFTWARE\\ZENTHA\\ORV", "InstallKey", "-2147483646", value, ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(value, "C:\\店");
    info.SysGetRegString("SOFTWARE\\ZENTHA\\NO", "InstallKey", "-2147483646", value, ok);
    EXPECT_FALSE(ok);
}

TEST(MachineFactsContract, NamesTheComputerInCapitals) {
    const std::string name = SystemFacts().GetComputerName();
    EXPECT_EQ(name, upperAscii(name));
    EXPECT_FALSE(name.empty());
    EXPECT_GE(SystemClock().now().year, 2026);
    EXPECT_TRUE(hasDrive(SystemFacts().GetWindowsDirectory()));
}

}  // namespace
}  // namespace orv
