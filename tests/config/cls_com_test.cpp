#include "config/cls_com.h"

#include <array>
#include <map>

#include "config/paths.h"
#include "config/profile.h"
#include "support/settings_test.h"

namespace orv {
namespace {

using Operation = MemoryRegistry::Operation;
constexpr const char* kLocalMachine = "-2147483646";

class ClsCom : public SettingsTest {
protected:
    bool readInstallKey(std::string& value) {
        return com().P_GetRegQueryString(kInstallKey, "InstallKey", kLocalMachine, value);
    }
    void expectPair(const std::string& text, const std::string& code) {
        EXPECT_EQ(gErrMsg, text);
        EXPECT_EQ(gErrCode, code);
    }
};

TEST_F(ClsCom, ABackslashIsAddedByTheLastByte) {
    // 能 ends in the byte of the backslash.
    for (const auto& [path, result] : std::map<std::string, std::string>{
             {"", ""}, {"C:\\A", "C:\\A\\"}, {"C:\\A\\", "C:\\A\\"}, {"C:\\能", "C:\\能"}, {"C:\\社", "C:\\社\\"}}) {
        EXPECT_EQ(P_AddBackslash(path), result) << path;
    }
}

TEST_F(ClsCom, AnAbsentValueIsEmptyAndNoFailure) {
    profiles.set("f.ini", "S", "empty", "");
    profiles.set("f.ini", "S", "quoted", "  a b ");
    profiles.set("f.ini", "S", "blanks", "   ");
    for (const auto& [key, expected] :
         std::map<std::string, std::string>{{"absent", ""}, {"empty", ""}, {"quoted", "a b "}, {"blanks", ""}}) {
        std::string value = "before";
        EXPECT_TRUE(PF_GetProFile("f.ini", "S", key, value));
        EXPECT_EQ(value, expected) << key;
    }
}

TEST_F(ClsCom, TheInstallFolderComesFromTheRegistry) {
    std::string value;
    EXPECT_TRUE(readInstallKey(value));
    EXPECT_EQ(value, "C:\\X");
    EXPECT_EQ(registry.lastHive(), -2147483646);
    EXPECT_EQ(registry.lastAccess(), 1);
    EXPECT_TRUE(registry.openKeys().empty());
    EXPECT_EQ(com().P_GetInstallFolderPath(), "C:\\X");
    EXPECT_EQ(com().SysSystemIni(), kIni);

    dropSharedSettings();
    registry.put(kInstallKey, "InstallKey", std::string("C:\\Z\\") + '\0' + "rest");
    EXPECT_EQ(com().P_GetInstallFolderPath(), "C:\\Z\\");
    EXPECT_EQ(com().SysSystemIni(), "C:\\Z\\SYS\\system.ini");
}

TEST_F(ClsCom, WithoutTheRegistryItIsBesideTheProgram) {
    registry.refuse(Operation::Open, 2);
    files.setProgramFolder("C:\\Y\\BIN");
    EXPECT_EQ(com().SysSystemIni(), "C:\\Y\\BIN\\..\\SYS\\system.ini");
    EXPECT_EQ(com().P_GetInstallFolderPath(), "C:\\Y\\BIN\\");
    expectPair("[ P_GetRegQueryString ] レジストリファイルをオープンできませんでした。", "EDLL50002");
    EXPECT_EQ(log(), "");
}

}  // namespace
}  // namespace orv
