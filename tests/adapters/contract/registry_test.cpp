#include <gtest/gtest.h>

#include "adapters/text/cp932.h"
#include "support/temp_office.h"
#include "support/test_registry.h"

namespace orv {
namespace {

constexpr std::int32_t kReadAndWrite = 0x20006 | 0x20019;
constexpr std::int32_t kText = 1;
constexpr std::int32_t kNotFound = 2;
constexpr std::int32_t kNoHandle = 6;
constexpr std::int32_t kMoreData = 234;

TEST(RegistryContract, GivesBackTheValuesThatWereSet) {
    const TempOffice office;
    office.write("registry.txt", "[HKEY_LOCAL_MACHINE\\SOFTWARE\\ZENTHA\\ORV]\nInstallKey=C:\\ORV\n");
    const Cp932 codePage;
    TestRegistry registry{office.root(), codePage};
    Registry::Handle key = 0;
    ASSERT_EQ(registry.RegOpenKeyEx(Registry::kLocalMachine, "software\\zentha\\orv", kReadAndWrite, key), 0);
    std::string value;
    EXPECT_EQ(registry.RegQueryValueEx(key, "INSTALLKEY", value, 1024), 0);
    EXPECT_EQ(value, "C:\\ORV");
    for (const std::string text : {"Ｃ店 ", "", "D:\\x"}) {
        EXPECT_EQ(registry.RegSetValueEx(key, "名前", kText, text, static_cast<std::int32_t>(text.size())), 0);
        EXPECT_EQ(registry.RegQueryValueEx(key, "名前", value, 1024), 0);
        EXPECT_EQ(value, text);
    }
    value = "kept";
    EXPECT_EQ(registry.RegQueryValueEx(key, "名前", value, 4), kMoreData) << "the value and its end need five bytes";
    EXPECT_EQ(registry.RegQueryValueEx(key, "Absent", value, 1024), kNotFound);
    EXPECT_EQ(value, "kept");
    EXPECT_EQ(registry.RegCloseKey(key), 0);
    EXPECT_EQ(registry.RegCloseKey(key), kNoHandle);
    EXPECT_EQ(registry.RegQueryValueEx(key, "名前", value, 1024), kNoHandle);
    EXPECT_EQ(registry.RegOpenKeyEx(Registry::kLocalMachine, "SOFTWARE\\ZENTHA\\NO", kReadAndWrite, key), kNotFound);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(registry.RegCreateKeyEx(Registry::kLocalMachine, "SOFTWARE\\ZENTHA\\New", kReadAndWrite, key), 0);
    EXPECT_GT(key, 0);
}

}  // namespace
}  // namespace orv
