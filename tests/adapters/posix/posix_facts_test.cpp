#include "adapters/system/system_facts.h"

#include <gtest/gtest.h>

#include <map>

#include "adapters/posix/install_paths.h"
#include "platform/ascii.h"
#include "support/temp_office.h"
#include "support/variable.h"

namespace orv {
namespace {

TEST(PosixFacts, ComputerNameIsUpperCaseAndWhole) {
    std::string host = upperAscii(readFile(std::string("/proc/sys/kernel/hostname")));
    host.pop_back();  // the end of the line
    const std::map<std::string, std::string> cases{
        {"terminal-with-a-long-name-02.office", "TERMINAL-WITH-A-LONG-NAME-02.OFFICE"},
        {" 端末a\t", "端末A"},
        {" ", host},
        {"", host}};
    for (const auto& [given, expected] : cases) {
        const Variable name("ORV_COMPUTER_NAME", given);
        EXPECT_EQ(SystemFacts().GetComputerName(), expected);
    }
}

TEST(InstallPaths, FindsTheNativePlace) {
    const TempOffice office;
    for (const char* place :
         {"C/ORV/Sys/x", "C/ORV/Dup/b", "C/ORV/Dup/B", "C/ORV/Dup/NAME", "C/ORV/Dup/Name", "secret"}) {
        office.write(place, "");
    }
    const std::map<std::string, std::vector<std::string>> cases{
        {"/C", {"C:", "C:\\"}},
        {"/C/ORV/NOT/New.txt", {"C:\\ORV\\NOT\\THERE\\..\\New.txt"}},
        {"/C/ORV/Dup/b", {"C:\\ORV\\Dup\\b"}},
        {"/C/ORV/Dup/NAME", {"C:\\ORV\\Dup\\name"}},
        {"/C/secret", {"C:\\..\\..\\..\\secret", "..\\..\\..\\..\\..\\secret"}},
        {"/C/ORV/BIN/new.txt", {"new.txt"}},
        {"/C/ORV/Sys", {"\\ORV\\sys"}},
    };
    EXPECT_EQ(catchFailure([&] { (void)office.paths().toNative(""); }), 52);
    for (const auto& [expected, paths] : cases) {
        for (const std::string& path : paths) {
            EXPECT_EQ(office.paths().toNative(path), office.root() + expected) << path;
        }
    }
}

TEST(InstallPaths, MapsBack) {
    const InstallPaths paths("/office/", "/office/C/ORV/BIN/");
    EXPECT_EQ(paths.programFolder(), "C:\\ORV\\BIN");
    const std::pair<const char*, const char*> cases[] = {
        {"/office/D/写真/a.jpg", "D:\\写真\\a.jpg"},
        {"/office/registry.txt", "/office/registry.txt"},
        {"/office/CD/x", "/office/CD/x"},
        {"/office2/C/x", "/office2/C/x"},
    };
    for (const auto& [native, expected] : cases) EXPECT_EQ(paths.toSystem(native), expected);
}

}  // namespace
}  // namespace orv
