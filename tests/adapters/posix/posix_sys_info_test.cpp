#include "adapters/posix/posix_sys_info.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include "adapters/posix/registry_file.h"
#include "adapters/text/cp932.h"
#include "temp_office.h"

namespace orv {
namespace {

TEST(OsRelease, FindsOneValue) {
    const std::pair<const char*, const char*> cases[] = {
        {"NAME=\"X\"\nPRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\n", "Debian GNU/Linux 12 (bookworm)"},
        {"PRETTY_NAME=Plain", "Plain"},
        {"PRETTY_NAME='Single'\n", "Single"},
        {"PRETTY_NAME_X=1\nPRETTY_NAME=2", "2"},
        {"#PRETTY_NAME=1\nOTHER=2", ""},
        {"", ""},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(osReleaseValue(text, "PRETTY_NAME"), expected) << text;
    }
}

TEST(ReleaseNumbers, TakesTheFirstThree) {
    using Numbers = std::array<std::string, 3>;
    EXPECT_EQ(releaseNumbers("6.1.0-18-amd64"), (Numbers{"6", "1", "0"}));
    EXPECT_EQ(releaseNumbers("6.8-rc1"), (Numbers{"6", "8", "0"}));
    EXPECT_EQ(releaseNumbers("x"), (Numbers{"0", "0", "0"}));
}

TEST(ChooseAddress, TakesTheOneThatOthersReach) {
    const NetAddress loopback{"127.0.0.1", true, true, true};
    const NetAddress down{"10.0.0.9", false, false, true};
    const NetAddress linkOnly{"169.254.3.4", true, false, true};
    const NetAddress linkOnly6{"fe80::1", true, false, false};
    const NetAddress v6{"2001:db8::1", true, false, false};
    const NetAddress first{"192.168.1.20", true, false, true};
    const NetAddress second{"10.0.0.5", true, false, true};
    const std::pair<std::vector<NetAddress>, std::string> cases[] = {
        {{}, ""},
        {{loopback, down}, ""},
        {{loopback, first, second}, first.text},
        {{v6, second}, second.text},
        {{linkOnly6, linkOnly, v6}, v6.text},
        {{linkOnly6, linkOnly}, linkOnly.text},
    };
    for (const auto& [addresses, expected] : cases) {
        EXPECT_EQ(chooseAddress(addresses), expected);
    }
}

class PosixSysInfoTest : public testing::Test {
protected:
    void expectFailure(const char* code) {
        EXPECT_FALSE(ok);
        EXPECT_FALSE(info.SysError().text.empty());
        EXPECT_EQ(info.SysError().code, code);
    }

    TempOffice office;
    Cp932 codePage;
    RegistryFile registry{office.root() + "/registry.txt", codePage};
    PosixSysInfo info{registry, office.paths()};
    bool ok = false;
};

TEST_F(PosixSysInfoTest, MeasuresThisMachine) {
    std::array<std::string, 5> facts;
    info.SysGetOsInfo(facts, ok);
    EXPECT_TRUE(ok);
    std::ifstream release("/proc/sys/kernel/osrelease");
    std::string kernel;
    release >> kernel;
    EXPECT_FALSE(facts[0].empty());
    EXPECT_EQ(facts[4], kernel);
    EXPECT_TRUE(kernel.starts_with(facts[1] + "." + facts[2])) << kernel;

    std::string megabytes;
    info.SysGetMemory(megabytes, ok);
    EXPECT_TRUE(ok);
    std::ifstream memory("/proc/meminfo");
    std::string label;
    std::uint64_t kilobytes = 0;
    memory >> label >> kilobytes;
    EXPECT_EQ(megabytes, std::to_string(kilobytes / 1024));
}

TEST_F(PosixSysInfoTest, MeasuresTheDiskOfTheDrive) {
    std::string drive = "C:\\";
    std::string free;
    std::string whole;
    info.SysGetDiskSpace(drive, free, whole, ok);
    ASSERT_TRUE(ok);
    EXPECT_EQ(drive, "C:\\");
    EXPECT_EQ(whole, std::to_string(std::filesystem::space(office.root()).capacity));
    EXPECT_LE(std::stoull(free), std::stoull(whole));
    for (std::string none : {"D:\\", "", "C", "/tm", "\\\\s"}) {
        info.SysGetDiskSpace(none, free, whole, ok);
        expectFailure("SYSERR:03");
    }
}

TEST_F(PosixSysInfoTest, AddressIsOneOrAFailure) {
    std::string address;
    info.SysGetIpAddress(address, ok);
    if (!ok) {
        expectFailure("SYSERR:04");
        return;
    }
    in6_addr parsed{};
    EXPECT_TRUE(::inet_pton(AF_INET, address.c_str(), &parsed) == 1 ||
                ::inet_pton(AF_INET6, address.c_str(), &parsed) == 1)
        << address;
    EXPECT_FALSE(address.starts_with("127."));
}

TEST_F(PosixSysInfoTest, ReadsTheRegistryByTheTextOfItsRoot) {
    office.write("registry.txt", "[HKEY_LOCAL_MACHINE\\SOFTWARE\\ZENTHA\\ORV]\nInstallKey=C:\\ORV\n");
    std::string value;
    info.SysGetRegString("SOFTWARE\\ZENTHA\\ORV", "InstallKey", "-2147483646", value, ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(value, "C:\\ORV");
    EXPECT_EQ(info.SysError(), FailureRecord{});
    for (const char* root : {"-2147483647", "", "x", "-2147483646 ", "99999999999"}) {
        info.SysGetRegString("SOFTWARE\\ZENTHA\\ORV", "InstallKey", root, value, ok);
        expectFailure("SYSERR:05");
    }
}

}  // namespace
}  // namespace orv
