#include "adapters/system/system_registry.h"

#include <gtest/gtest.h>

#include <map>

#include "adapters/text/cp932.h"
#include "support/temp_office.h"

namespace orv {
namespace {

constexpr std::int32_t kQuery = 1;
constexpr std::int32_t kWrite = 6;
constexpr std::int32_t kText = 1;

constexpr const char* kFile =
    "; the suite\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\ZENTHA\\ORV]\r\n"
    "InstallKey = C:\\ORV \r\n"
    "Quoted=\" a \"\r\n"
    "名前=Ｃ店\r\n"
    "Twice=1\r\n"
    "Twice=2\r\n"
    "@=default\r\n"
    "\r\n"
    "[HKEY_CURRENT_USER\\Software\\Other]\r\n"
    "InstallKey=D:\\\r\n";

class RegistryFileTest : public testing::Test {
protected:
    RegistryFileTest() { office.write("registry.txt", kFile); }

    /// Returns the code, or the value after "=".
    std::string query(const std::string& subKey, const std::string& name,
                      Registry::Handle hive = Registry::kLocalMachine) {
        Registry::Handle key = 0;
        std::string value;
        std::int32_t code = registry.RegOpenKeyEx(hive, subKey, kQuery, key);
        if (code == 0) {
            code = registry.RegQueryValueEx(key, name, value, 1024);
            EXPECT_EQ(registry.RegCloseKey(key), 0);
        }
        return code == 0 ? "=" + value : std::to_string(code);
    }
    std::int32_t set(const std::string& subKey, const std::string& name, const std::string& value) {
        Registry::Handle key = 0;
        const std::int32_t code = registry.RegCreateKeyEx(Registry::kLocalMachine, subKey, kWrite, key);
        return code != 0 ? code : registry.RegSetValueEx(key, name, kText, value, 0);
    }

    TempOffice office;
    Cp932 codePage;
    SystemRegistry registry{office.root(), codePage};
};

TEST_F(RegistryFileTest, FindsValues) {
    const std::string orv = "SOFTWARE\\ZENTHA\\ORV";
    const std::map<std::string, std::string> values{{"InstallKey", "=C:\\ORV"}, {"Quoted", "= a "},
                                                    {"名前", "=Ｃ店"},          {"Twice", "=1"},
                                                    {"", "=default"},           {"Absent", "2"}};
    for (const auto& [name, expected] : values) EXPECT_EQ(query(orv, name), expected) << name;
    EXPECT_EQ(query("software\\zentha\\orv\\", "INSTALLKEY"), "=C:\\ORV");
    EXPECT_EQ(query("SOFTWARE\\ZENTHA", "InstallKey"), "2");
    EXPECT_EQ(query(orv, "InstallKey", Registry::kCurrentUser), "2");
    EXPECT_EQ(query("Software\\Other", "InstallKey", Registry::kCurrentUser), "=D:\\");
}

TEST_F(RegistryFileTest, WritesOneLineAndKeepsAllOthers) {
    std::string expected = kFile;
    const auto replace = [&](const std::string& from, const std::string& to) {
        expected.replace(expected.find(from), from.size(), to);
    };
    EXPECT_EQ(set("Software\\Zentha\\Orv", "installkey", "D:\\店"), 0);
    replace("InstallKey = C:\\ORV \r\n", "installkey=D:\\店\r\n");
    EXPECT_EQ(office.readBytes("registry.txt"), expected);

    EXPECT_EQ(set("SOFTWARE\\ZENTHA\\ORV", "New", " x "), 0);
    replace("@=default\r\n", "@=default\r\nNew=\" x \"\r\n");
    EXPECT_EQ(office.readBytes("registry.txt"), expected);
    EXPECT_EQ(query("SOFTWARE\\ZENTHA\\ORV", "New"), "= x ");
}

}  // namespace
}  // namespace orv
